#pragma once

#include "ui/ViewTexts.h"

#include <QWidget>

class PrimaryButton;
class ThemeLabel;
class SymbolView;

/// Says in the middle of an otherwise empty place why it is empty, with at most one thing to do about it.
class EmptyStateView : public QWidget {
    Q_OBJECT
public:
    explicit EmptyStateView(const ViewTexts &texts = {}, QWidget *parent = nullptr);

    void setTexts(const ViewTexts &texts);
    /// An empty text takes the button away.
    void setButton(const QString &text);

Q_SIGNALS:
    void buttonPressed();

private:
    SymbolView *m_icon;
    ThemeLabel *m_title;
    ThemeLabel *m_message;
    PrimaryButton *m_button;
};
