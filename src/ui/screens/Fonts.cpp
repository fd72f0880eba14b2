#include "ui/screens/Fonts.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHash>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr double bodySize = 17;

/// Size and weight of a style in the system's font, relative to its normal text.
struct StyleShape {
    double scale;
    QFont::Weight weight;
};

StyleShape shapeOf(TextStyle style) {
    switch (style) {
    case TextStyle::largeTitle:
        return {2.0, QFont::Bold};
    case TextStyle::title:
        return {1.7, QFont::Bold};
    case TextStyle::title2:
        return {1.4, QFont::DemiBold};
    case TextStyle::title3:
        return {1.2, QFont::DemiBold};
    case TextStyle::headline:
        return {1.0, QFont::DemiBold};
    case TextStyle::body:
        return {1.0, QFont::Normal};
    case TextStyle::callout:
        return {0.96, QFont::Normal};
    case TextStyle::subheadline:
        return {0.93, QFont::Normal};
    case TextStyle::footnote:
        return {0.9, QFont::Normal};
    case TextStyle::caption:
        return {0.86, QFont::Normal};
    case TextStyle::caption2:
        return {0.8, QFont::Normal};
    }
    return {1.0, QFont::Normal};
}

/// As the desktop set it, before the program put a font of its own.
const QFont &systemFont() {
    static const QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    return font;
}

/// In pixels. A desktop that names no size gets one that can be read.
double systemSize() {
    constexpr int smallest = 13;
    static const int size = std::max(QFontInfo(systemFont()).pixelSize(), smallest);
    return size;
}

/// The first of the program's resource folders that has the file; empty when none has.
QString fontFile(const QString &name) {
    const QString file = name + u".ttf"_s;
    for (const auto &folder : {u"SpaceFonts/"_s, QString()}) {
        if (const QString built = u":/"_s + folder + file; QFile::exists(built))
            return built;
        const auto installed = QStandardPaths::locate(QStandardPaths::AppDataLocation, folder + file);
        if (!installed.isEmpty())
            return installed;
    }
    return {};
}

/// The families of the fonts that were found, by their file names; registered once, before the first is used.
const QHash<QString, QString> &spaceFamilies() {
    static const QHash<QString, QString> families = [] {
        QHash<QString, QString> found;
        for (const auto &name : {u"WLOrbit-Bold"_s, u"WLOrbit-SemiBold"_s, u"WLOxanium-Bold"_s, u"WLOxanium-SemiBold"_s,
                                 u"WLOxanium-Medium"_s, u"WLOxanium-Regular"_s}) {
            const QString file = fontFile(name);
            const int id = file.isEmpty() ? -1 : QFontDatabase::addApplicationFont(file);
            if (id >= 0)
                found.insert(name, QFontDatabase::applicationFontFamilies(id).value(0));
        }
        return found;
    }();
    return families;
}

QFont sized(QFont font, double pixels, QFont::Weight weight) {
    font.setPixelSize(std::max(1, qRound(pixels)));
    font.setWeight(weight);
    return font;
}

/// The weight that a font of the theme is drawn for, by its name.
QFont::Weight spaceWeight(const QString &name) {
    if (name.endsWith(u"-SemiBold"))
        return QFont::DemiBold;
    if (name.endsWith(u"-Bold"))
        return QFont::Bold;
    return name.endsWith(u"-Medium") ? QFont::Medium : QFont::Normal;
}

QFont inSpaceFont(const SpaceFont &space, double pixels) {
    QFont font = systemFont();
    if (const auto family = spaceFamilies().constFind(space.name); family != spaceFamilies().cend())
        font.setFamily(*family);
    return sized(font, pixels, spaceWeight(space.name));
}

} // namespace

QFont themeFont(TextStyle style, std::optional<QFont::Weight> weight) {
    const auto shape = shapeOf(style);
    const auto usedWeight = weight.value_or(shape.weight);
    if (!spaceFontsActive() || spaceFamilies().isEmpty())
        return sized(systemFont(), systemSize() * shape.scale, usedWeight);
    const auto space = spaceFont(style, weight);
    return inSpaceFont(space, space.size * systemSize() / bodySize);
}

QFont themeFont(double fixedSize, QFont::Weight weight) {
    if (!spaceFontsActive())
        return sized(systemFont(), fixedSize, weight);
    return inSpaceFont(spaceFont(fixedSize, weight), fixedSize);
}
