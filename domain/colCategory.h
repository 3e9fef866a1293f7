// All categories in name order, "zzz" last.
#pragma once

#include "domain/CCategory.h"
#include "domain/RecordList.h"

class colCategory
{
public:
    /// A new category, saved at once. Failure: passed on.
    std::shared_ptr<CCategory> Add(const QString &Name);
    /// By position from 1, or by prefixed key. Failure: passed on.
    const std::shared_ptr<CCategory> &Item(std::int32_t Position) const { return m_Categories.Item(Position); }
    const std::shared_ptr<CCategory> &Item(const QString &Key) const { return m_Categories.Item(Key); }
    std::int32_t Count() const { return m_Categories.Count(); }
    void Remove(std::int32_t Position) { m_Categories.Remove(Position); }
    void Remove(const QString &Key) { m_Categories.Remove(Key); }
    auto begin() const { return m_Categories.begin(); }
    auto end() const { return m_Categories.end(); }
    /// Replaces the list, and with it every record. Failure: trapped, "Error loading categories."
    void Load();
    /// The first category whose stored Name equals the argument, case counting; or empty.
    std::shared_ptr<CCategory> CategoryByName(const QString &Name) const;

private:
    RecordList<CCategory> m_Categories;
};
