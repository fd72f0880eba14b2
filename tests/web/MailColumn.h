#pragma once

#include "mail/screens/EmailHTMLView.h"

#include <QEvent>
#include <QLabel>
#include <QScrollArea>

#include <functional>

/// Runs the event loop until `condition` holds. False once a generous deadline has passed.
[[nodiscard]] bool spinUntil(const std::function<bool()> &condition);

/// The column of the message screen: a header, the body and what follows it, scrolled as one.
class MailColumn : public QScrollArea {
public:
    MailColumn();

    /// Shows a message and waits until it is on the screen.
    void show(const QString &html, bool showImages = false);
    /// What a person sees at this point of the window.
    QColor seen(QPoint point) const;
    bool waitForColor(QPoint point, const QColor &color) const;
    /// The widget inside the body that gets the mouse and the keys.
    QWidget *inputWidget() const;
    void turnWheel(int degrees, Qt::KeyboardModifiers modifiers = {});
    void press(int key, Qt::KeyboardModifiers modifiers = {});
    void click(QPoint pointInBody);
    void hover(QPoint pointInBody);
    /// Makes the window so wide that the body gets this width.
    void setBodyWidth(int width);
    /// All words of the page that the web engine holds.
    QString pageText() const;

    static ThemeDefinition theme(bool isDark);

    QLabel *header;
    EmailHTMLView *body;
    QLabel *footer;
    QList<QUrl> links;
    int paints = 0;

private:
    void sendMouse(QEvent::Type type, QPoint pointInBody, Qt::MouseButton button, Qt::MouseButtons held);
};

/// Ends the web engine's process that holds the page, as a crash does.
void killRenderer();
