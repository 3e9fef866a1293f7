// All skins that fit the present screen, by the names of their folders, in the order of names without regard to case.
// Filled once, when the list is made.
#pragma once

#include "platform/KeyedList.h"
#include "skin/CSkin.h"

class colSkin
{
public:
    colSkin() { LoadSkins(); }
    /// Begins to read, beside other work, what the list will need, and the frame of the skin of that name, or of the
    /// first one when there is none of that name.
    static void Prepare(const QString &Name);

    /// Failure: passed on, when there is none. A number in text form is a name.
    const std::shared_ptr<CSkin> &Item(const QString &Key) const { return m_Skins.Item(Key); }
    const std::shared_ptr<CSkin> &Item(std::int32_t Position) const { return m_Skins.Item(Position); }
    std::int32_t Count() const { return m_Skins.Count(); }
    void Remove(const QString &Key) { m_Skins.Remove(Key); }
    void Remove(std::int32_t Position) { m_Skins.Remove(Position); }
    auto begin() const { return m_Skins.begin(); }
    auto end() const { return m_Skins.end(); }

private:
    void LoadSkins();

    KeyedList<CSkin> m_Skins;
};
