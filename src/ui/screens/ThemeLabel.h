#pragma once

#include "ui/SpaceFonts.h"

#include <QLabel>

/// How strong a text stands out.
enum class TextRole { main, secondary, faint, accent, error };

/// A text in a style of the theme; follows a change of theme. Shows its words as they are, never as markup.
class ThemeLabel : public QLabel {
    Q_OBJECT
public:
    explicit ThemeLabel(const QString &text = {}, TextStyle style = TextStyle::body, TextRole role = TextRole::main,
                        QWidget *parent = nullptr);

    void setRole(TextRole role);
    void setTextStyle(TextStyle style, std::optional<QFont::Weight> weight = {});

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyStyle();

    TextStyle m_style;
    std::optional<QFont::Weight> m_weight;
    TextRole m_role;
};
