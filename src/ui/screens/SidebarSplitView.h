#pragma once

#include "platform/Clock.h"
#include "platform/UserDefaults.h"

#include <QSplitter>

/// The sidebar beside the rest of the window; its width survives a restart.
class SidebarSplitView : public QSplitter {
    Q_OBJECT
public:
    SidebarSplitView(QWidget *sidebar, QWidget *content, UserDefaults &defaults = UserDefaults::standard(),
                     QWidget *parent = nullptr);
    ~SidebarSplitView() override;

private:
    void storeWidth();

    UserDefaults &m_defaults;
    ScheduledWorkPtr m_pendingStore;
};
