// The questions of a game's folder: "Questions.txt" and the pictures that it names. In a language that has a file of
// its own, "Questions.1.txt" for language "1", that one is read.
#pragma once

#include "QuestionSet.h"

/// Folder ends in a separator. Failure: none; what is wrong stands in Problems.
QuestionSet LoadQuestions(const QString &Folder, const QString &Language);
