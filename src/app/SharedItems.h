#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

struct SharedAttachment {
    QString filename;
    QByteArray data;
    QString contentType;

    bool operator==(const SharedAttachment &) const = default;
};

/// What a companion process has left in the application group's folder for a new message.
struct SharedItems {
    std::vector<SharedAttachment> attachments;
    /// Lines of text and addresses of pages.
    QString body;
};

/// Takes the items out of the folder; absent when there are none that can be read, which then stay. Blocks.
std::optional<SharedItems> takeSharedItems();
