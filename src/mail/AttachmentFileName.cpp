#include "mail/AttachmentFileName.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Marks that turn the direction of writing can make one extension look like another.
bool turnsDirection(QChar character) {
    return (character >= u'\u202a' && character <= u'\u202e') || (character >= u'\u2066' && character <= u'\u2069');
}

bool separates(QChar character) {
    return character == u'/' || character == u'\\' || character == u':' ||
           character.category() == QChar::Other_Control || turnsDirection(character);
}

/// Bytes; file systems allow 255, and writing adds a temporary suffix.
constexpr qsizetype longestName = 240;

} // namespace

QString safeFileName(const QString &text) {
    QString name = text;
    for (QChar &character : name)
        if (separates(character))
            character = u'_';
    name = name.trimmed();
    return name.isEmpty() || name == "."_L1 || name == ".."_L1 ? u"attachment"_s : name;
}

QString storableFileName(const QString &text) {
    auto name = safeFileName(text);
    // What stands behind the last dot says what opens the file.
    const auto end = std::min<qsizetype>(QFileInfo(name).suffix().size() + 1, 20);
    while (name.toUtf8().size() > longestName)
        name.remove(name.size() - end - 1, 1);
    return name;
}
