// A list that a record loads when it is first read, and keeps for its own life.
#pragma once

#include <memory>
#include <utility>

/// The list in Kept. At the first read it is made, SetFilter tells it what to load, and it loads. A list whose load
/// failed is kept too and stays empty, as every cache of the program keeps what it got the first time.
/// Failure: passed on.
template <typename Collection, typename Filter>
Collection &LoadedOnce(std::unique_ptr<Collection> &Kept, Filter &&SetFilter)
{
    if (!Kept) {
        Kept = std::make_unique<Collection>();
        std::forward<Filter>(SetFilter)(*Kept);
        Kept->Load();
    }
    return *Kept;
}
