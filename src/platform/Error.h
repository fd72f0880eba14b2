#pragma once

#include <QByteArray>
#include <QString>
#include <exception>

/// Base of the errors that may reach a person: `description()` is the text that a screen shows.
class Error : public std::exception {
public:
    explicit Error(QString description);

    const QString &description() const { return m_description; }
    const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_description;
    QByteArray m_utf8;
};

/// The text to show for any caught exception.
QString errorText(const std::exception_ptr &error);
