#include "platform/UserDefaults.h"

#include "platform/AtomicFileWriter.h"
#include "platform/JSONNumber.h"
#include "platform/StandardPaths.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <map>

using namespace Qt::StringLiterals;

namespace {

const auto fileName = u"defaults.json"_s;
/// Bytes have no JSON kind: they are kept as an object with this one key.
const auto bytesKey = u"$bytes"_s;

} // namespace

UserDefaults &UserDefaults::standard() {
    static UserDefaults store(configFolder() + u'/' + fileName);
    return store;
}

std::shared_ptr<UserDefaults> UserDefaults::suite(const QString &name) {
    static QMutex mutex;
    static std::map<QString, std::shared_ptr<UserDefaults>> open;
    const auto folder = groupContainerFolder(name);
    if (!folder)
        return nullptr;
    const QMutexLocker lock(&mutex);
    auto &store = open[*folder];
    if (!store)
        store = std::make_shared<UserDefaults>(*folder + u'/' + fileName);
    return store;
}

UserDefaults::UserDefaults(QString path)
    : m_path(std::move(path)) {
    load();
}

void UserDefaults::load() {
    QFile file(m_path);
    if (!file.exists())
        return;
    QJsonParseError error{};
    const auto document =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll(), &error) : QJsonDocument();
    m_unreadable = !document.isObject();
    m_values = document.object();
}

void UserDefaults::setAside() {
    if (!QFile::exists(m_path))
        return void(m_unreadable = false);
    for (int number = 1; m_unreadable && number < 1000; ++number)
        m_unreadable = !QFile::rename(m_path, u"%1.unreadable-%2"_s.arg(m_path).arg(number));
}

void UserDefaults::save() {
    if (m_unreadable)
        setAside();
    if (!m_unreadable)
        AtomicFileWriter::shared().write(m_path, QJsonDocument(m_values).toJson());
}

std::optional<QJsonValue> UserDefaults::value(const QString &key) const {
    const QMutexLocker lock(&m_mutex);
    const auto found = m_values.constFind(key);
    return found == m_values.constEnd() ? std::nullopt : std::optional<QJsonValue>(*found);
}

bool UserDefaults::contains(const QString &key) const {
    return value(key).has_value();
}

std::optional<QString> UserDefaults::text(const QString &key) const {
    const auto found = value(key);
    return found && found->isString() ? std::optional(found->toString()) : std::nullopt;
}

std::optional<bool> UserDefaults::flag(const QString &key) const {
    const auto found = value(key);
    return found && found->isBool() ? std::optional(found->toBool()) : std::nullopt;
}

std::optional<double> UserDefaults::number(const QString &key) const {
    const auto found = value(key);
    return found && found->isDouble() ? std::optional(found->toDouble()) : std::nullopt;
}

std::optional<qint64> UserDefaults::integer(const QString &key) const {
    const auto found = value(key);
    return found ? exactInteger(*found) : std::nullopt;
}

std::optional<QByteArray> UserDefaults::bytes(const QString &key) const {
    const auto found = value(key);
    const auto encoded = found ? found->toObject().value(bytesKey) : QJsonValue();
    return encoded.isString() ? std::optional(QByteArray::fromBase64(encoded.toString().toLatin1())) : std::nullopt;
}

void UserDefaults::set(const QString &key, const QJsonValue &value) {
    store(key, value);
}

void UserDefaults::set(const QString &key, const QByteArray &bytes) {
    store(key, QJsonObject{{bytesKey, QString::fromLatin1(bytes.toBase64())}});
}

void UserDefaults::remove(const QString &key) {
    store(key, std::nullopt);
}

void UserDefaults::store(const QString &key, const std::optional<QJsonValue> &value) {
    {
        const QMutexLocker lock(&m_mutex);
        const auto found = m_values.constFind(key);
        const bool present = found != m_values.constEnd();
        if (value ? present && *found == *value : !present)
            return;
        if (value)
            m_values.insert(key, *value);
        else
            m_values.remove(key);
        save();
    }
    Q_EMIT changed();
}
