// An open result set of one statement: rows are read forward, one at a time as they are asked for, and may be changed
// and added to. A set opened on a select of one table can be written, by the primary key of its rows; one that comes
// from a join can't. Who belongs to the set is settled before its first change: the rows still ahead are read then,
// so that a changed or added row is never met again.
#pragma once

#include "platform/store/Statement.h"

#include <QString>
#include <QVariant>

#include <cstdint>
#include <memory>

class Connection;

class Recordset
{
public:
    ~Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    /// True when there is no present row: behind the last one, or none at all.
    bool Eof() const;
    /// Writes what was set in the present row, if anything was, and goes on. Failure: passed on; behind the last row
    /// there is nothing to go to.
    void MoveNext();

    /// The position of a column, for who reads it in many rows. Names match without regard to case.
    /// Failure: passed on, when there is no such column.
    int Column(QStringView Name) const;
    int ColumnCount() const;

    /// The value of a column of the present row, or what was set in a row being added or changed; a null value when
    /// it is null. Failure: passed on, when there is no row or no such column.
    QVariant Value(QStringView Column) const { return Value(this->Column(Column)); }
    /// 32-bit number, text, day count, flag of a column. Failure: passed on; null is one, and so are overflow and a
    /// value of another kind.
    std::int32_t Long(QStringView Column) const { return Long(this->Column(Column)); }
    QString Text(QStringView Column) const { return Text(this->Column(Column)); }
    double Date(QStringView Column) const { return Date(this->Column(Column)); }
    bool Flag(QStringView Column) const { return Flag(this->Column(Column)); }
    // The same, by the position that Column gave.
    QVariant Value(int Position) const;
    std::int32_t Long(int Position) const;
    QString Text(int Position) const;
    double Date(int Position) const;
    bool Flag(int Position) const;

    /// Begins a new row, empty but for the table's defaults. What was set in the present row is written first.
    /// Failure: passed on, also when the set can't be written.
    void AddNew();
    /// Sets a column of the present or new row. A null QVariant writes null. Failure: passed on.
    void SetValue(QStringView Column, const QVariant &NewValue);
    /// Writes what was set; the row stays the present one, as the store now holds it.
    /// Failure: passed on; the row in the store stays as it was, and what was set is still set.
    void Update();
    /// Writes a row being added, and makes the last row the present one, with the key the store gave it.
    /// Failure: passed on, as Update; without any row there is no last one.
    void MoveLast();
    /// Lets go of the statement. Further reads fail.
    void Close();

private:
    friend class Command;
    class Rows;
    explicit Recordset(std::unique_ptr<Rows> rows);
    Rows &Opened() const;
    std::unique_ptr<Rows> m_Rows;
};
