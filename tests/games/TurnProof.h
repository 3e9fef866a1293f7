// Items of Turn or Mirror are proved by their pictures alone: what can be seen there is put together again, and
// compared in every turn that there is.
#pragma once

#include "games/turn-or-mirror/TurnRules.h"

/// The right figure is the left one turned, or its mirror image turned, as the item says, and not both.
void ExpectOneRightAnswer(const TurnItem &Item);
