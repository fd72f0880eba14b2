#pragma once

#include <QFont>
#include <QString>
#include <optional>

/// What a text is for; each has a size of its own.
enum class TextStyle {
    largeTitle,
    title,
    title2,
    title3,
    headline,
    body,
    callout,
    subheadline,
    footnote,
    caption,
    caption2
};

/// Whether texts are set in the fonts of the theme `space`. Main thread only.
bool spaceFontsActive();
void setSpaceFontsActive(bool active);

/// A font of the theme `space`: the name of the font file without its ending, and its size.
struct SpaceFont {
    QString name;
    double size;
    bool operator==(const SpaceFont &) const = default;
};

/// The size is to be scaled as the person's own size of that style is; 17 is the size of body text.
SpaceFont spaceFont(TextStyle style, std::optional<QFont::Weight> weight = {});
SpaceFont spaceFont(double fixedSize, QFont::Weight weight = QFont::Normal);
