// The one family of failures. Whatever goes wrong in this program travels as a RuntimeError to the nearest place
// that ends it: Trapped (shell/program/Trapped.h), Step (platform/Step.h), or the outermost guard around event
// delivery. "Not there" is no failure: that is an empty pointer or std::optional.
#pragma once

#include <QString>

#include <exception>

class RuntimeError : public std::exception
{
public:
    /// Number: free to choose, 0 when there is none. Source: the part that failed, may be empty. Description: one
    /// sentence for the user.
    RuntimeError(long Number, QString Source, QString Description);
    explicit RuntimeError(const QString &Description);

    long Number() const noexcept { return m_Number; }
    const QString &Source() const noexcept { return m_Source; }
    const QString &Description() const noexcept { return m_Description; }
    /// The description in UTF-8.
    const char *what() const noexcept override { return m_What.constData(); }

private:
    long m_Number;
    QString m_Source;
    QString m_Description;
    QByteArray m_What;
};

/// The sentence to show for any exception: the description of a RuntimeError, what() of others, and "Unknown
/// failure." for what is no std::exception (a game may throw anything). An empty pointer gives an empty text.
QString DescriptionOf(const std::exception_ptr &Failure);
