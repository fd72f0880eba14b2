#pragma once

#include "app/AppState.h"

#include <QWidget>

class QVBoxLayout;
class SectionPage;

/// The section in place of the mail view. Each section is made when it is opened and is gone when it is left.
class DestinationView final : public QWidget {
    Q_OBJECT
public:
    explicit DestinationView(std::shared_ptr<AppState> appState, QWidget *parent = nullptr);

    /// Gives the first control of the section the keyboard focus.
    void focusSection();

private:
    void render();
    void showSection(AppDestination destination);
    void leaveSection();

    std::shared_ptr<AppState> m_appState;
    QVBoxLayout *m_layout;
    std::optional<AppDestination> m_shown;
    SectionPage *m_section = nullptr;
};
