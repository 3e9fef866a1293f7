// All skins that fit the present screen, by the names of their folders, in the order of names without regard to case.
// The folders are listed when the list is made. A start shows one skin: that one is loaded when it is asked for, and
// all others when somebody first asks for more, which nobody can tell from a list that was loaded at once.
#pragma once

#include "platform/KeyedList.h"
#include "skin/CSkin.h"

#include <vector>

class colSkin
{
public:
    colSkin();
    /// Begins to read, beside other work, what the skin of that name will need, or the first one when there is none
    /// of that name.
    static void Prepare(const QString &Name);
    /// Loads what was not asked for yet. Failure: none; a skin that can't be loaded or used is left out.
    void LoadSkins();

    /// Failure: passed on, when there is none. A number in text form is a name.
    std::shared_ptr<CSkin> Item(const QString &Key);
    std::shared_ptr<CSkin> Item(std::int32_t Position);
    std::int32_t Count() { return All().Count(); }
    void Remove(const QString &Key) { All().Remove(Key); }
    void Remove(std::int32_t Position) { All().Remove(Position); }
    auto begin() { return All().begin(); }
    auto end() { return All().end(); }

private:
    struct Folder
    {
        QString Name;
        bool IsTried = false;
        std::shared_ptr<CSkin> Skin; // empty where it is not tried, or can't be used
    };
    static const std::shared_ptr<CSkin> &Loaded(Folder &folder);
    KeyedList<CSkin> &All();

    std::vector<Folder> m_Folders; // until all are loaded
    KeyedList<CSkin> m_Skins;      // from then on
};
