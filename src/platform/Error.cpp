#include "platform/Error.h"

Error::Error(QString description)
    : m_description(std::move(description))
    , m_utf8(m_description.toUtf8()) {}

QString errorText(const std::exception_ptr &error) {
    try {
        std::rethrow_exception(error);
    } catch (const Error &known) {
        return known.description();
    } catch (const std::exception &other) {
        return QString::fromUtf8(other.what());
    } catch (...) {
        return QStringLiteral("Unknown error");
    }
}
