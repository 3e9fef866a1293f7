// A prepared statement of the engine, and the one way between its values and ours. Nothing outside this folder names
// an engine's type.
#pragma once

#include <QString>
#include <QVariant>

#include <cstdint>

struct sqlite3;
struct sqlite3_stmt;

/// Throws the engine's last failure on that handle as a RuntimeError.
[[noreturn]] void ThrowStoreFailure(sqlite3 *Handle);
/// Runs one statement without values and without rows. Failure: passed on.
void Execute(sqlite3 *Handle, const char *Sql);

// What a value is, whatever column it came from. Whole numbers beyond 32 bits, a null, and a value of another kind
// are failures; a fraction is rounded, halves to even. Failure: passed on.
std::int32_t LongOf(const QVariant &Value);
QString TextOf(const QVariant &Value);
double DateOf(const QVariant &Value);
bool FlagOf(const QVariant &Value);

class Statement
{
public:
    /// Failure: passed on; a text that holds none, or more than one, is one.
    Statement(sqlite3 *Handle, const QString &Sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    const QString &Sql() const { return m_Sql; }
    /// True when running it may change the store.
    bool Writes() const;

    int ParameterCount() const;
    /// Position counts from 0. Failure: passed on; what is no null, flag, number, text or bytes can't be stored.
    void Bind(int Position, const QVariant &Value);

    /// Goes to the next row. Answer: false behind the last one; it holds no lock then. Failure: passed on.
    bool Step();
    /// Lets go of the rows and of every lock.
    void Reset();

    int ColumnCount() const;
    QString ColumnName(int Column) const;
    /// The table and the column there that a column comes from, also through a view; empty for an expression.
    QString TableName(int Column) const;
    QString OriginName(int Column) const;

    // Of the present row. The four kinds are as LongOf and its kin, without the way through a QVariant.
    QVariant Value(int Column) const;
    bool IsNull(int Column) const;
    std::int32_t Long(int Column) const;
    QString Text(int Column) const;
    double Date(int Column) const;
    bool Flag(int Column) const;

private:
    sqlite3 *m_Handle;
    sqlite3_stmt *m_Statement = nullptr;
    QString m_Sql;
};
