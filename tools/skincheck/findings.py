"""What is to be told to the author of a skin: what to mend, and hints."""


class Findings:
    def __init__(self):
        self.mends = []
        self.hints = []

    def mend(self, where, text):
        self.add(self.mends, f"mend: {where}: {text}.")

    def hint(self, where, text):
        self.add(self.hints, f"hint: {where}: {text}.")

    @staticmethod
    def add(lines, line):
        if line not in lines:
            lines.append(line)
