#pragma once

#include <QString>
#include <QUuid>

enum class ToastType { info, success, error, warning };

/// A short transient message of one screen. Two with the same words are still two.
struct ToastMessage {
    QUuid id = QUuid::createUuid();
    QString message;
    ToastType type = ToastType::info;

    ToastMessage() = default;
    ToastMessage(QString text, ToastType kind)
        : message(std::move(text))
        , type(kind) {}
    bool operator==(const ToastMessage &) const = default;
};
