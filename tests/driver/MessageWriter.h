#pragma once

#include "compose/screens/ComposeView.h"
#include "driver/AppDriver.h"

class ComposeEditorView;

/// Writes messages in the running program's compose screen.
class MessageWriter {
public:
    explicit MessageWriter(AppDriver &app)
        : m_app(app) {}

    /// The compose screen; null when nothing is being written.
    ComposeView *view() const;
    /// Does what opens the compose screen, and waits until the message is filled and its editor shows it.
    bool open(const std::function<void()> &trigger);
    /// Types into the field of this name.
    void fill(const QString &field, const QString &text);
    /// Types where the caret of the text stands, and waits until the message holds it.
    bool typeText(const QString &text);
    void pressButton(const QString &name);
    /// Drops files on the screen and waits until they are attached.
    bool dropFiles(const QStringList &paths);
    /// Waits until the message's HTML holds this.
    bool waitForHTML(const QString &part);
    /// As the page writes a text that somebody has typed.
    static QString asHTML(QString text);
    /// Sends, and waits until the screen has gone.
    bool send();

private:
    AppDriver &m_app;
};
