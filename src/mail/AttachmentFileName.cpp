#include "mail/AttachmentFileName.h"

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

} // namespace

QString safeFileName(const QString &text) {
    QString name = text;
    for (QChar &character : name)
        if (separates(character))
            character = u'_';
    name = name.trimmed();
    return name.isEmpty() || name == "."_L1 || name == ".."_L1 ? u"attachment"_s : name;
}
