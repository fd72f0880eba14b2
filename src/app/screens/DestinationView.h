#pragma once

#include "app/AppState.h"

#include <QWidget>

class EmptyStateView;

/// A section in place of the mail view, under its title.
class DestinationView final : public QWidget {
    Q_OBJECT
public:
    explicit DestinationView(QWidget *parent = nullptr);

    void showSection(AppDestination destination);

private:
    EmptyStateView *m_content;
};
