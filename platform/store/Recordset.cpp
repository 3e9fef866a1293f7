#include "platform/store/Recordset.h"

#include "platform/RuntimeError.h"
#include "platform/store/Connection.h"
#include "platform/store/RecordsetRows.h"

#include <algorithm>

namespace
{
char16_t Lower(QChar c)
{
    const char16_t unit = c.unicode();
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

// As the engine compares names: only the plain letters have two cases.
bool IsSameName(QStringView a, QStringView b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](QChar x, QChar y) { return Lower(x) == Lower(y); });
}
} // namespace

Recordset::Rows::Rows(Connection &connection, std::unique_ptr<Statement> select)
    : m_Connection(&connection), m_Select(std::move(select)), m_Where(m_Select->Step() ? OnStatement : Behind)
{
    for (int column = 0; column < m_Select->ColumnCount(); ++column) m_Names.push_back(m_Select->ColumnName(column));
}

int Recordset::Rows::Column(QStringView name) const
{
    // A walk over the rows asks for the same columns in the same order, row by row.
    const std::size_t next = m_LastAsked + 1 < m_Names.size() ? m_LastAsked + 1 : 0;
    if (next < m_Names.size() && m_Names[next] == name) {
        m_LastAsked = next;
        return static_cast<int>(next);
    }
    const auto found = std::find_if(m_Names.begin(), m_Names.end(),
                                    [name](const QString &known) { return IsSameName(known, name); });
    if (found == m_Names.end())
        throw RuntimeError(3265, {}, QStringLiteral("The result set has no column \"%1\".").arg(name));
    m_LastAsked = static_cast<std::size_t>(found - m_Names.begin());
    return static_cast<int>(m_LastAsked);
}

const QVariant *Recordset::Rows::KeptValue(int position) const
{
    if (position < 0 || static_cast<std::size_t>(position) >= m_Names.size())
        throw RuntimeError(3265, {}, QStringLiteral("The result set has no column %1.").arg(position));
    for (const SetColumn &change : m_Changes)
        if (change.Position == position) return &change.Value;
    if (m_Where == OnStatement) return nullptr;
    if (m_Where == Behind) throw RuntimeError(3021, {}, QStringLiteral("There is no present row."));
    return &m_Present[static_cast<std::size_t>(position)];
}

void Recordset::Rows::Next()
{
    if (m_Where == Behind) throw RuntimeError(3021, {}, QStringLiteral("There is no present row."));
    WriteChanges();
    if (m_Where == OnStatement) {
        m_Where = Behind; // also when the step fails
        if (m_Select->Step()) m_Where = OnStatement;
    } else {
        TakeAhead();
    }
}

void Recordset::Rows::TakeAhead()
{
    m_Where = m_Ahead.empty() ? Behind : OnKept;
    m_Present.clear();
    if (m_Ahead.empty()) return;
    m_Present = std::move(m_Ahead.front());
    m_Ahead.pop_front();
}

void Recordset::Rows::Settle()
{
    if (m_Where != OnStatement) return;
    RowValues present = PresentRow();
    std::deque<RowValues> ahead;
    while (m_Select->Step()) ahead.push_back(PresentRow());
    m_Present = std::move(present);
    m_Ahead = std::move(ahead);
    m_Where = OnKept;
}

RowValues Recordset::Rows::PresentRow() const
{
    RowValues row;
    row.reserve(m_Names.size());
    for (int column = 0; column < m_Select->ColumnCount(); ++column) row.push_back(m_Select->Value(column));
    return row;
}

RowWriter &Recordset::Rows::Writer()
{
    if (!m_Writer) m_Writer.emplace(*m_Connection, *m_Select);
    return *m_Writer;
}

void Recordset::Rows::AddNew()
{
    Writer();
    WriteChanges();
    Settle();
    // The new row stands behind all others, where MoveLast finds it; the rest was walked past.
    m_Ahead.clear();
    m_Present.assign(m_Names.size(), {});
    m_Where = OnNew;
}

void Recordset::Rows::Set(int position, const QVariant &value)
{
    Writer().CheckWritable(position);
    if (m_Where == Behind) throw RuntimeError(3021, {}, QStringLiteral("There is no present row."));
    const auto known = std::find_if(m_Changes.begin(), m_Changes.end(),
                                    [position](const SetColumn &change) { return change.Position == position; });
    if (known == m_Changes.end())
        m_Changes.push_back({position, value});
    else
        known->Value = value;
}

void Recordset::Rows::WriteChanges()
{
    if (m_Where == OnNew) {
        m_Present = Writer().Insert(m_Changes);
        m_Where = OnKept;
    } else if (!m_Changes.empty()) {
        Settle();
        m_Present = Writer().Update(m_Changes, m_Present);
    }
    m_Changes.clear();
}

void Recordset::Rows::Last()
{
    if (m_Where == Behind) throw RuntimeError(3021, {}, QStringLiteral("There is no present row."));
    WriteChanges();
    Settle();
    if (m_Ahead.empty()) return;
    m_Present = std::move(m_Ahead.back());
    m_Ahead.clear();
}

Recordset::Recordset(std::unique_ptr<Rows> rows) : m_Rows(std::move(rows)) {}
Recordset::~Recordset() = default;

Recordset::Rows &Recordset::Opened() const
{
    if (!m_Rows) throw RuntimeError(3704, {}, QStringLiteral("The result set is closed."));
    return *m_Rows;
}

bool Recordset::Eof() const { return Opened().IsBehind(); }
void Recordset::MoveNext() { Opened().Next(); }
int Recordset::Column(QStringView Name) const { return Opened().Column(Name); }
int Recordset::ColumnCount() const { return Opened().Live().ColumnCount(); }

QVariant Recordset::Value(int Position) const
{
    const Rows &rows = Opened();
    if (rows.IsLive(Position)) return rows.Live().Value(Position);
    const QVariant *kept = rows.KeptValue(Position);
    return kept != nullptr ? *kept : rows.Live().Value(Position);
}

std::int32_t Recordset::Long(int Position) const
{
    const Rows &rows = Opened();
    if (rows.IsLive(Position)) return rows.Live().Long(Position);
    const QVariant *kept = rows.KeptValue(Position);
    return kept != nullptr ? LongOf(*kept) : rows.Live().Long(Position);
}

QString Recordset::Text(int Position) const
{
    const Rows &rows = Opened();
    if (rows.IsLive(Position)) return rows.Live().Text(Position);
    const QVariant *kept = rows.KeptValue(Position);
    return kept != nullptr ? TextOf(*kept) : rows.Live().Text(Position);
}

double Recordset::Date(int Position) const
{
    const Rows &rows = Opened();
    if (rows.IsLive(Position)) return rows.Live().Date(Position);
    const QVariant *kept = rows.KeptValue(Position);
    return kept != nullptr ? DateOf(*kept) : rows.Live().Date(Position);
}

bool Recordset::Flag(int Position) const
{
    const Rows &rows = Opened();
    if (rows.IsLive(Position)) return rows.Live().Flag(Position);
    const QVariant *kept = rows.KeptValue(Position);
    return kept != nullptr ? FlagOf(*kept) : rows.Live().Flag(Position);
}

void Recordset::AddNew() { Opened().AddNew(); }
void Recordset::SetValue(QStringView Column, const QVariant &NewValue)
{
    Rows &rows = Opened();
    rows.Set(rows.Column(Column), NewValue);
}
void Recordset::Update() { Opened().WriteChanges(); }
void Recordset::MoveLast() { Opened().Last(); }
void Recordset::Close() { m_Rows.reset(); }
