#pragma once

#include <QObject>

class AppDriver;
class EmailDetailView;
class QListView;

/// Opens messages of the list one after the other, as a person does with the arrow key.
class MessageReader : public QObject {
    Q_OBJECT
public:
    explicit MessageReader(AppDriver &driver);

    /// Opens the message of this row and waits until it has come to rest. What follows are the newer ones above it.
    void startAt(int row);
    /// Milliseconds from the key press to the next message's body on the display.
    double openNext();
    /// Whether the body on the display is a page, or else plain text.
    bool showsPage() const;

private:
    bool isLoaded(qint64 uid) const;

    AppDriver &m_driver;
    QListView *m_list;
    EmailDetailView *m_detail;
    bool m_isPagePainted = false;
};
