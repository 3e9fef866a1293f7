#!/usr/bin/env python3
"""Writes the questions of Missing Operator anew: make_questions.py. The file it writes is committed.

A task is kept only when exactly one of the operators that are offered makes it true; quotients count as fractions, so
7 ÷ 3 is no whole number. Operators are right equally often at each level, and the seed is fixed.
"""
import pathlib
import random
from fractions import Fraction

FILE = pathlib.Path(__file__).parent / "Questions.txt"
SEED = 20260314
ROUNDS = 20
FOR_EACH = 12  # tasks of a level for each operator
ALL = "+−×÷"


def apply(left, operator, right):
    if operator == "÷":
        return Fraction(left) / right if right else None
    return {"+": left + right, "−": left - right, "×": left * right}[operator]


def value(numbers, operators):
    """Products and quotients before sums, from left to right; None for a division by 0."""
    numbers, operators = [Fraction(number) for number in numbers], list(operators)
    for strong in (True, False):
        place = 0
        while place < len(operators):
            if (operators[place] in "×÷") != strong:
                place += 1
                continue
            result = apply(numbers[place], operators[place], numbers[place + 1])
            if result is None:
                return None
            numbers[place:place + 2] = [result]
            del operators[place]
    return numbers[0]


class Level:
    def __init__(self, offered, others, lows, highs):
        self.offered = offered  # operators to choose from
        self.others = others    # the known operator of a task with three numbers, "" for two numbers
        self.lows, self.highs = lows, highs


# Smallest and largest number at each place of a task; a factor or divisor is kept to one digit below level 7.
LEVELS = [
    Level("+−", "", (2, 1), (12, 9)),
    Level("+−×", "", (2, 2), (9, 9)),
    Level(ALL, "", (2, 2), (60, 9)),
    Level(ALL, "", (12, 3), (96, 12)),
    Level(ALL, "+−", (3, 2, 1), (40, 9, 12)),
    Level(ALL, "+−", (12, 3, 3), (90, 12, 30)),
    Level(ALL, "×", (3, 2, 2), (48, 12, 6)),
    Level(ALL, "+−×", (12, 3, 3), (144, 16, 16)),
]


def task(level, right, rng):
    numbers = [rng.randint(low, high) for low, high in zip(level.lows, level.highs)]
    if len(numbers) == 2:
        make = lambda operator: [operator]
        words = "{} ? {} = {}"
    else:
        known = rng.choice(level.others)
        first = rng.random() < 0.5
        make = (lambda operator: [operator, known]) if first else (lambda operator: [known, operator])
        words = "{} ? {} " + known + " {} = {}" if first else "{} " + known + " {} ? {} = {}"
    result = value(numbers, make(right))
    if result is None or result.denominator != 1 or not 0 <= result <= 999:
        return None
    fitting = [one for one in level.offered if value(numbers, make(one)) == result]
    return words.format(*numbers, result) if fitting == [right] else None


def main():
    rng = random.Random(SEED)
    lines = ["# Written by make_questions.py: change the levels there.", "", f"Rounds: {ROUNDS}"]
    known = set()
    for number, level in enumerate(LEVELS, 1):
        lines += ["", f"Level: {number}", "Choices: " + " | ".join(level.offered)]
        for right in level.offered:
            count = 0
            while count < FOR_EACH:
                words = task(level, right, rng)
                if words is None or words in known:
                    continue
                known.add(words)
                count += 1
                lines += ["", f"Question: {words}", f"Right: {right}"]
    FILE.write_text("\n".join(lines) + "\n", encoding="utf-8")


main()
