#include "ui/Avatar.h"

#include <QStringList>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

/// The first character as a person sees it, which may be several code points.
QString firstCharacter(const QString &text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    return text.left(finder.toNextBoundary());
}

} // namespace

const std::array<QString, 15> &avatarColors() {
    static const std::array colors = {u"#1a73e8"_s, u"#ea4335"_s, u"#34a853"_s, u"#fbbc04"_s, u"#ff6d01"_s,
                                      u"#46bdc6"_s, u"#7baaf7"_s, u"#f28b82"_s, u"#81c995"_s, u"#fdd663"_s,
                                      u"#ee675c"_s, u"#a142f4"_s, u"#24c1e0"_s, u"#5bb974"_s, u"#e8710a"_s};
    return colors;
}

QString avatarColorForName(const QString &name) {
    // Unsigned, since a signed overflow is not defined; the magnitude is that of the signed 64-bit value.
    quint64 hash = 0;
    for (const uint scalar : name.toUcs4())
        hash = hash * 31 + scalar;
    const quint64 magnitude = qint64(hash) < 0 ? 0 - hash : hash;
    return avatarColors()[magnitude % avatarColors().size()];
}

QString avatarInitials(const QString &name) {
    const QStringList words = name.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return u"?"_s;
    QString initials = firstCharacter(words.first());
    if (words.size() > 1)
        initials += firstCharacter(words.last());
    return initials.toUpper();
}

QImage avatarImage(const QString &text) {
    QString base64 = text;
    base64.remove(u"data:image/png;base64,"_s).remove(u"data:image/jpeg;base64,"_s);
    return QImage::fromData(QByteArray::fromBase64(base64.toLatin1()));
}
