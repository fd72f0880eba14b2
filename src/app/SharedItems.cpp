#include "app/SharedItems.h"

#include "compose/ComposeRecords.h"
#include "platform/FileReading.h"
#include "platform/StandardPaths.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

using Item = std::map<QString, QString>;

/// A list of a few short texts.
constexpr qint64 longestList = qint64(16) << 20;

std::optional<QString> value(const Item &item, const QString &key) {
    const auto found = item.find(key);
    return found == item.end() ? std::nullopt : std::optional(found->second);
}

/// Takes the file itself, too.
std::optional<SharedAttachment> takeFile(const Item &item) {
    const auto path = value(item, u"path"_s);
    const auto filename = value(item, u"filename"_s);
    if (!path || !filename)
        return std::nullopt;
    try {
        // What is larger cannot be attached anyway, which is told when it is tried.
        const auto bytes = readRegularFile(*path, attachmentsLimit + 1);
        QFile::remove(*path);
        return SharedAttachment{*filename, bytes, value(item, u"mime"_s).value_or(u"application/octet-stream"_s)};
    } catch (const Error &) {
        return std::nullopt;
    }
}

std::vector<Item> takeList(const QString &path) {
    const auto items = decodeJSONText<std::vector<Item>>(readRegularFile(path, longestList));
    QFile::remove(path);
    return items;
}

SharedItems taken(const std::vector<Item> &items) {
    SharedItems shared;
    QStringList lines;
    for (const auto &item : items) {
        const auto type = value(item, u"type"_s);
        if (type == u"file"_s) {
            if (const auto file = takeFile(item))
                shared.attachments.push_back(*file);
        } else if (const auto text = value(item, u"value"_s); text && (type == u"url"_s || type == u"text"_s)) {
            lines.append(*text);
        }
    }
    shared.body = lines.join(u'\n');
    return shared;
}

} // namespace

std::optional<SharedItems> takeSharedItems() {
    const auto folder = groupContainerFolder(applicationGroupName());
    if (!folder)
        return std::nullopt;
    try {
        return taken(takeList(*folder + u"/shared_items.json"_s));
    } catch (const Error &) {
        return std::nullopt;
    }
}
