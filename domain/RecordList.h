// An ordered list of records, each under the text "K" and its number; a record without a number is found by its
// position alone. Positions count from 1. The index by number is made at the first question for it, since most lists
// are only walked.
#pragma once

#include "platform/KeyedList.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

template <typename Record>
class RecordList
{
public:
    using Pointer = std::shared_ptr<Record>;

    void Reserve(std::size_t Count) { m_Records.reserve(Count), m_Numbers.reserve(Count); }
    /// Adds a record whose number is known to be new to the list: a row under its table's own key.
    void AddRow(Pointer record, std::int32_t Number)
    {
        if (m_Index) m_Index->insert(Number, m_Records.size());
        m_Records.push_back(std::move(record));
        m_Numbers.push_back(Number);
    }
    /// Failure: passed on, a ListError when the number is taken.
    void Add(Pointer record, std::int32_t Number)
    {
        if (Index().contains(Number))
            throw ListError(QStringLiteral("This key is already associated with an element of this collection."));
        AddRow(std::move(record), Number);
    }
    /// Adds a record under a prefixed key, or without a number when Key is empty.
    /// Failure: passed on, a ListError when the key is taken, or is none that a record can have.
    void Add(Pointer record, const QString &Key)
    {
        if (!Key.isEmpty()) return Add(std::move(record), NumberIn(Key));
        m_Records.push_back(std::move(record));
        m_Numbers.push_back(std::nullopt);
    }
    /// The record of that number, or empty.
    Pointer Find(std::int32_t Number) const
    {
        const auto found = Index().constFind(Number);
        return found == Index().constEnd() ? nullptr : m_Records[*found];
    }
    /// Failure: passed on, a ListError when there is none.
    const Pointer &ByNumber(std::int32_t Number) const { return m_Records[PositionOf(Number)]; }
    const Pointer &Item(std::int32_t Position) const { return m_Records[Checked(Position)]; }
    const Pointer &Item(const QString &Key) const { return ByNumber(NumberIn(Key)); }

    void RemoveNumber(std::int32_t Number) { RemoveAt(PositionOf(Number)); }
    void Remove(std::int32_t Position) { RemoveAt(Checked(Position)); }
    void Remove(const QString &Key) { RemoveNumber(NumberIn(Key)); }
    void Clear() { m_Records.clear(), m_Numbers.clear(), m_Index.reset(); }

    std::int32_t Count() const { return static_cast<std::int32_t>(m_Records.size()); }
    auto begin() const { return m_Records.begin(); }
    auto end() const { return m_Records.end(); }

private:
    using IndexByNumber = QHash<std::int32_t, std::size_t>;

    const IndexByNumber &Index() const
    {
        if (!m_Index) {
            m_Index.emplace();
            m_Index->reserve(static_cast<qsizetype>(m_Numbers.size()));
            for (std::size_t at = 0; at < m_Numbers.size(); ++at)
                if (m_Numbers[at]) m_Index->insert(*m_Numbers[at], at);
        }
        return *m_Index;
    }
    std::size_t PositionOf(std::int32_t Number) const
    {
        const auto found = Index().constFind(Number);
        if (found == Index().constEnd()) throw ListError(QStringLiteral("Item not found in this collection."));
        return *found;
    }
    std::size_t Checked(std::int32_t Position) const
    {
        if (Position < 1 || Position > Count()) throw ListError(QStringLiteral("Subscript out of range."));
        return static_cast<std::size_t>(Position) - 1;
    }
    static std::int32_t NumberIn(const QString &Key)
    {
        bool isNumber = false;
        const std::int32_t number = Key.mid(1).toInt(&isNumber);
        if (!isNumber || RecordKey(number).compare(Key, Qt::CaseInsensitive) != 0)
            throw ListError(QStringLiteral("Item not found in this collection."));
        return number;
    }
    void RemoveAt(std::size_t at)
    {
        m_Records.erase(m_Records.begin() + static_cast<std::ptrdiff_t>(at));
        m_Numbers.erase(m_Numbers.begin() + static_cast<std::ptrdiff_t>(at));
        m_Index.reset();
    }

    std::vector<Pointer> m_Records;
    std::vector<std::optional<std::int32_t>> m_Numbers;
    mutable std::optional<IndexByNumber> m_Index;
};
