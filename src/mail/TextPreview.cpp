#include "mail/TextPreview.h"

QString compactPreview(const QString &text, qsizetype limit) {
    QString preview;
    bool needsBlank = false;
    for (const auto character : text) {
        const bool isSpace = character.isSpace();
        if (!isSpace && needsBlank && !preview.isEmpty())
            preview += u' ';
        // Never cuts a character of two code units in half.
        if (preview.size() >= limit && !character.isLowSurrogate())
            break;
        if (!isSpace)
            preview += character;
        needsBlank = isSpace;
    }
    preview.truncate(preview.endsWith(u' ') ? preview.size() - 1 : preview.size());
    return preview;
}
