#include "platform/RuntimeError.h"

#include <utility>

RuntimeError::RuntimeError(long Number, QString Source, QString Description)
    : m_Number(Number),
      m_Source(std::move(Source)),
      m_Description(std::move(Description)),
      m_What(m_Description.toUtf8())
{}

RuntimeError::RuntimeError(const QString &Description) : RuntimeError(0, {}, Description) {}

QString DescriptionOf(const std::exception_ptr &Failure)
{
    if (!Failure) return {};
    try {
        std::rethrow_exception(Failure);
    } catch (const RuntimeError &error) {
        return error.Description();
    } catch (const std::exception &error) {
        return QString::fromUtf8(error.what());
    } catch (...) {
        return QStringLiteral("Unknown failure.");
    }
}
