// Failures ignored step by step: each Step runs to its end or to its first failure, and the next Step runs all the
// same.
#pragma once

#include <utility>

/// Runs the work and ends any failure in it, silently. The answer says whether it came through.
template <typename Work>
bool Step(Work &&work)
{
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) {
        return false;
    }
}
