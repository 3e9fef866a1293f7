// What was found, as sentences for the author. What is to be mended makes the check fail; a note does not.
#pragma once

#include <QString>

#include <functional>
#include <set>

class Report
{
public:
    /// Each sentence is told once, at once: a game may end the process with its next step.
    std::function<void(bool MustMend, const QString &Sentence)> Told;

    void Mend(const QString &Sentence) { Tell(true, Sentence); }
    void Note(const QString &Sentence) { Tell(false, Sentence); }
    int Mends() const { return m_Mends; }

private:
    void Tell(bool mustMend, const QString &sentence)
    {
        const QString line = sentence.simplified();
        if (!m_Known.insert(line).second) return;
        m_Mends += mustMend ? 1 : 0;
        if (Told) Told(mustMend, line);
    }

    std::set<QString> m_Known;
    int m_Mends = 0;
};
