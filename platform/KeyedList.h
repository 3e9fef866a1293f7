// An ordered list whose members may also be found by a text key. Positions count from 1. Keys match without regard to
// letter case; a member without a key is found by its position alone.
//
// Members are shared: a list hands out the object itself, and two lists may hold the same one.
#pragma once

#include "platform/RuntimeError.h"

#include <QHash>
#include <QString>

#include <algorithm>
#include <memory>
#include <vector>

/// A key or position that is not in the list, or a key that is in it already.
class ListError : public RuntimeError
{
public:
    using RuntimeError::RuntimeError;
};

/// The key of a record: "K" followed by its number in decimal.
inline QString RecordKey(std::int32_t Number) { return QLatin1Char('K') + QString::number(Number); }

template <typename Member>
class KeyedList
{
public:
    using Pointer = std::shared_ptr<Member>;

    /// Failure: passed on, a ListError when the key is taken.
    void Add(Pointer member, const QString &Key = {})
    {
        const QString key = Key.toCaseFolded();
        if (!key.isEmpty()) {
            if (m_ByKey.contains(key))
                throw ListError(QStringLiteral("This key is already associated with an element of this collection."));
            m_ByKey.insert(key, m_Members.size());
        }
        m_Members.push_back({std::move(member), key});
    }
    /// Failure: passed on, a ListError when there is none.
    const Pointer &Item(const QString &Key) const { return m_Members[IndexOf(Key)].member; }
    /// Failure: passed on, a ListError when there is none. The position counts from 1.
    const Pointer &Item(std::int32_t Position) const
    {
        if (Position < 1 || Position > Count()) throw ListError(QStringLiteral("Subscript out of range."));
        return m_Members[static_cast<std::size_t>(Position) - 1].member;
    }
    /// The member of that key, or empty.
    Pointer Find(const QString &Key) const { return m_ByKey.contains(Key.toCaseFolded()) ? Item(Key) : nullptr; }
    /// Failure: passed on, a ListError when there is none.
    void Remove(const QString &Key) { RemoveAt(IndexOf(Key)); }
    /// Failure: passed on, a ListError when there is none.
    void Remove(std::int32_t Position)
    {
        Item(Position);
        RemoveAt(static_cast<std::size_t>(Position) - 1);
    }
    void Clear() { m_Members.clear(), m_ByKey.clear(); }
    std::int32_t Count() const { return static_cast<std::int32_t>(m_Members.size()); }

private:
    struct Entry
    {
        Pointer member;
        QString key;
    };
    using Entries = std::vector<Entry>;

    std::size_t IndexOf(const QString &Key) const
    {
        const auto known = m_ByKey.constFind(Key.toCaseFolded());
        if (known == m_ByKey.constEnd()) throw ListError(QStringLiteral("Item not found in this collection."));
        return *known;
    }
    void RemoveAt(std::size_t index)
    {
        m_ByKey.remove(m_Members[index].key);
        m_Members.erase(m_Members.begin() + static_cast<std::ptrdiff_t>(index));
        for (std::size_t &later : m_ByKey) later -= later > index ? 1 : 0;
    }

    Entries m_Members;
    QHash<QString, std::size_t> m_ByKey; // index into m_Members

public:
    /// Members in order, as shared pointers.
    class Iterator
    {
    public:
        using value_type = Pointer;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        explicit Iterator(typename Entries::const_iterator at) : m_At(at) {}
        const Pointer &operator*() const { return m_At->member; }
        Iterator &operator++() { return ++m_At, *this; }
        Iterator operator++(int) { return Iterator(m_At++); }
        friend bool operator==(const Iterator &, const Iterator &) = default;

    private:
        typename Entries::const_iterator m_At;
    };
    Iterator begin() const { return Iterator(m_Members.begin()); }
    Iterator end() const { return Iterator(m_Members.end()); }
};
