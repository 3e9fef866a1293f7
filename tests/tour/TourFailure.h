// What ends a tour: a sentence for who reads its output.
#pragma once

#include "platform/RuntimeError.h"

class TourFailure : public RuntimeError
{
public:
    using RuntimeError::RuntimeError;
};
