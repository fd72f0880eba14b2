#include "ui/SpaceFonts.h"

#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace {

/// Read from the store once, when first asked.
bool &activeFlag() {
    static bool active = UserDefaults::standard().text(u"appTheme"_s) == u"space"_s;
    return active;
}

double baseSize(TextStyle style) {
    switch (style) {
    case TextStyle::largeTitle:
        return 34;
    case TextStyle::title:
        return 28;
    case TextStyle::title2:
        return 22;
    case TextStyle::title3:
        return 20;
    case TextStyle::subheadline:
        return 15;
    case TextStyle::callout:
        return 16;
    case TextStyle::footnote:
        return 13;
    case TextStyle::caption:
        return 12;
    case TextStyle::caption2:
        return 11;
    case TextStyle::headline:
    case TextStyle::body:
        return 17;
    }
    return 17;
}

bool isTitle(TextStyle style) {
    return style <= TextStyle::title3;
}

QString displayFont(QFont::Weight weight) {
    return weight >= QFont::Bold ? u"WLOrbit-Bold"_s : u"WLOrbit-SemiBold"_s;
}

QString textFont(QFont::Weight weight) {
    if (weight >= QFont::Bold)
        return u"WLOxanium-Bold"_s;
    if (weight == QFont::DemiBold)
        return u"WLOxanium-SemiBold"_s;
    return weight == QFont::Medium ? u"WLOxanium-Medium"_s : u"WLOxanium-Regular"_s;
}

} // namespace

bool spaceFontsActive() {
    return activeFlag();
}

void setSpaceFontsActive(bool active) {
    activeFlag() = active;
}

SpaceFont spaceFont(TextStyle style, std::optional<QFont::Weight> weight) {
    const auto used = weight.value_or(style == TextStyle::headline ? QFont::DemiBold : QFont::Normal);
    return {isTitle(style) ? displayFont(used) : textFont(used), baseSize(style)};
}

SpaceFont spaceFont(double fixedSize, QFont::Weight weight) {
    const bool isDisplay = fixedSize >= 22 && weight >= QFont::Bold;
    return {isDisplay ? displayFont(weight) : textFont(weight), fixedSize};
}
