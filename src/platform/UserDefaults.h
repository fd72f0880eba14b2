#pragma once

#include <QJsonObject>
#include <QMutex>
#include <QObject>
#include <memory>
#include <optional>

/// A typed key and value store kept as one JSON file. Thread-safe. A value of another kind than the one asked for reads
/// as absent. Writes reach the disk in the background, whole or not at all.
class UserDefaults : public QObject {
    Q_OBJECT
public:
    /// The program's own store.
    static UserDefaults &standard();
    /// A store that companion processes share, by its suite's name; null when its folder cannot be made.
    static std::shared_ptr<UserDefaults> suite(const QString &name);

    /// A file that exists and cannot be read or parsed is set aside, with its content, before the first write.
    explicit UserDefaults(QString path);

    std::optional<QString> text(const QString &key) const;
    std::optional<bool> flag(const QString &key) const;
    std::optional<qint64> integer(const QString &key) const;
    std::optional<double> number(const QString &key) const;
    std::optional<QByteArray> bytes(const QString &key) const;
    std::optional<QJsonValue> value(const QString &key) const;
    bool contains(const QString &key) const;

    /// Stores the value; one that is equal to the stored one changes nothing and wakes nobody.
    void set(const QString &key, const QJsonValue &value);
    void set(const QString &key, const QByteArray &bytes);
    void remove(const QString &key);

Q_SIGNALS:
    /// Some value changed; emitted on the thread that changed it.
    void changed();

private:
    void load();
    void save();
    void setAside();
    void store(const QString &key, const std::optional<QJsonValue> &value);

    const QString m_path;
    mutable QMutex m_mutex;
    QJsonObject m_values;
    bool m_unreadable = false;
};
