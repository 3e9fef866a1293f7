// A category of games. The name "zzz" is where games go that name none.
#pragma once

#include "domain/colGame.h"

#include <QString>

#include <cstdint>
#include <memory>

class CCategory
{
public:
    std::int32_t Key = 0; // 0 until first saved
    QString Name;

    /// The games of this category, from the catalogue as it stands at the first read.
    colGame &Games();
    /// The name in the present language, from "Categories/", the name, ".ini"; read once. The default, Name, is
    /// written to the file when it has none.
    QString LocalName();
    /// Failure: trapped, "Error saving Category info."
    void Save();

private:
    std::unique_ptr<colGame> m_Games;
    QString m_LocalName;
};
