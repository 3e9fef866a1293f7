// A form that is never shown: the pool of picture surfaces on which skins keep every picture of theirs.
#pragma once

#include "platform/PicBox.h"

#include <memory>
#include <vector>

struct frmControls
{
    /// Element 0 is there from the start and stays unused. None goes before the process ends, whoever lets go of it:
    /// skins share them with games.
    std::vector<std::shared_ptr<::PicBox>> PicBox{std::make_shared<::PicBox>()};
};
