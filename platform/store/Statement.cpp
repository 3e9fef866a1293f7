#include "platform/store/Statement.h"

#include "platform/Convert.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <cmath>

namespace
{
[[noreturn]] void TypeMismatch() { throw RuntimeError(13, {}, QStringLiteral("Type mismatch.")); }
[[noreturn]] void NullUsed() { throw RuntimeError(94, {}, QStringLiteral("Invalid use of Null.")); }

QString FromEngine(const char *text) { return text == nullptr ? QString() : QString::fromUtf8(text); }

bool IsBlank(const char *text)
{
    while (*text == ' ' || *text == ';' || *text == '\t' || *text == '\r' || *text == '\n') ++text;
    return *text == '\0';
}

int BindNumber(sqlite3_stmt *statement, int at, double number)
{
    // The engine would store a null in its place.
    if (std::isnan(number)) throw RuntimeError(6, {}, QStringLiteral("Overflow."));
    return sqlite3_bind_double(statement, at, number);
}

int BindUnsigned(sqlite3_stmt *statement, int at, qulonglong number)
{
    if (number > static_cast<qulonglong>(INT64_MAX)) throw RuntimeError(6, {}, QStringLiteral("Overflow."));
    return sqlite3_bind_int64(statement, at, static_cast<sqlite3_int64>(number));
}

int BindText(sqlite3_stmt *statement, int at, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return sqlite3_bind_text64(statement, at, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                               SQLITE_TRANSIENT, SQLITE_UTF8);
}

int BindBytes(sqlite3_stmt *statement, int at, const QByteArray &bytes)
{
    return sqlite3_bind_blob64(statement, at, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                               SQLITE_TRANSIENT);
}

int BindValue(sqlite3_stmt *statement, int at, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return sqlite3_bind_null(statement, at);
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return sqlite3_bind_int64(statement, at, value.toLongLong());
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return BindUnsigned(statement, at, value.toULongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return BindNumber(statement, at, value.toDouble());
    case QMetaType::QString:
        return BindText(statement, at, value.toString());
    case QMetaType::QByteArray:
        return BindBytes(statement, at, value.toByteArray());
    default:
        TypeMismatch();
    }
}
} // namespace

void ThrowStoreFailure(sqlite3 *Handle)
{
    throw RuntimeError(sqlite3_extended_errcode(Handle), QStringLiteral("Store"), FromEngine(sqlite3_errmsg(Handle)));
}

void Execute(sqlite3 *Handle, const char *Sql)
{
    if (sqlite3_exec(Handle, Sql, nullptr, nullptr, nullptr) != SQLITE_OK) ThrowStoreFailure(Handle);
}

std::int32_t LongOf(const QVariant &Value)
{
    if (!Value.isValid()) NullUsed();
    switch (Value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return ToInt32(static_cast<std::int64_t>(Value.toLongLong()));
    case QMetaType::Double:
        return ToInt32(Value.toDouble());
    default:
        TypeMismatch();
    }
}

QString TextOf(const QVariant &Value)
{
    if (!Value.isValid()) NullUsed();
    if (Value.typeId() == QMetaType::QByteArray) TypeMismatch();
    return Value.toString();
}

double DateOf(const QVariant &Value)
{
    if (!Value.isValid()) NullUsed();
    if (Value.typeId() == QMetaType::QString || Value.typeId() == QMetaType::QByteArray) TypeMismatch();
    return Value.toDouble();
}

bool FlagOf(const QVariant &Value) { return DateOf(Value) != 0; }

Statement::Statement(sqlite3 *Handle, const QString &Sql) : m_Handle(Handle), m_Sql(Sql)
{
    const QByteArray text = Sql.toUtf8();
    const char *rest = nullptr;
    if (sqlite3_prepare_v2(Handle, text.constData(), static_cast<int>(text.size()) + 1, &m_Statement, &rest) !=
        SQLITE_OK)
        ThrowStoreFailure(Handle);
    const bool isOne = m_Statement != nullptr && IsBlank(rest);
    if (isOne) return;
    sqlite3_finalize(m_Statement);
    throw RuntimeError(QStringLiteral("One statement is expected."));
}

Statement::~Statement() { sqlite3_finalize(m_Statement); }

bool Statement::Writes() const { return sqlite3_stmt_readonly(m_Statement) == 0; }

int Statement::ParameterCount() const { return sqlite3_bind_parameter_count(m_Statement); }

void Statement::Bind(int Position, const QVariant &Value)
{
    if (BindValue(m_Statement, Position + 1, Value) != SQLITE_OK) ThrowStoreFailure(m_Handle);
}

bool Statement::Step()
{
    const int answer = sqlite3_step(m_Statement);
    if (answer == SQLITE_ROW) return true;
    if (answer == SQLITE_DONE) return false;
    // The description is taken before the reset, which is what lets go of the locks.
    const RuntimeError failure(sqlite3_extended_errcode(m_Handle), QStringLiteral("Store"),
                               FromEngine(sqlite3_errmsg(m_Handle)));
    sqlite3_reset(m_Statement);
    throw failure;
}

void Statement::Reset() { sqlite3_reset(m_Statement); }

int Statement::ColumnCount() const { return sqlite3_column_count(m_Statement); }

QString Statement::ColumnName(int Column) const { return FromEngine(sqlite3_column_name(m_Statement, Column)); }

QString Statement::TableName(int Column) const { return FromEngine(sqlite3_column_table_name(m_Statement, Column)); }

QString Statement::OriginName(int Column) const
{
    return FromEngine(sqlite3_column_origin_name(m_Statement, Column));
}

QVariant Statement::Value(int Column) const
{
    switch (sqlite3_column_type(m_Statement, Column)) {
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(sqlite3_column_int64(m_Statement, Column)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(m_Statement, Column));
    case SQLITE_TEXT:
        return QVariant(Text(Column));
    case SQLITE_BLOB: {
        const auto *bytes = static_cast<const char *>(sqlite3_column_blob(m_Statement, Column));
        return QVariant(QByteArray(bytes, sqlite3_column_bytes(m_Statement, Column)));
    }
    default:
        return {};
    }
}

bool Statement::IsNull(int Column) const { return sqlite3_column_type(m_Statement, Column) == SQLITE_NULL; }

std::int32_t Statement::Long(int Column) const
{
    // One way to the column for both questions: long lists ask for millions of numbers.
    sqlite3_value *const value = sqlite3_column_value(m_Statement, Column);
    if (sqlite3_value_type(value) == SQLITE_INTEGER)
        return ToInt32(static_cast<std::int64_t>(sqlite3_value_int64(value)));
    return LongOf(Value(Column));
}

QString Statement::Text(int Column) const
{
    if (sqlite3_column_type(m_Statement, Column) != SQLITE_TEXT) return TextOf(Value(Column));
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_Statement, Column));
    const QByteArray text = QByteArray::fromRawData(bytes, sqlite3_column_bytes(m_Statement, Column));
    // Another tool may have written 8-bit text; it is read as the text of a file is.
    return text.isValidUtf8() ? QString::fromUtf8(text) : FromFileText(text);
}

double Statement::Date(int Column) const
{
    if (sqlite3_column_type(m_Statement, Column) == SQLITE_FLOAT) return sqlite3_column_double(m_Statement, Column);
    return DateOf(Value(Column));
}

bool Statement::Flag(int Column) const { return FlagOf(Value(Column)); }
