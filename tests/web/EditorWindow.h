#pragma once

#include "compose/screens/ComposeEditorToolbar.h"
#include "compose/screens/ComposeEditorView.h"
#include "compose/screens/EditorWebViewRef.h"
#include "web/MailColumn.h"

#include <QWidget>

/// A window as the compose screen has: the toolbar, and the editor below it.
class EditorWindow : public QWidget {
public:
    /// Waits for the page.
    EditorWindow();

    /// Runs a script in the page and waits for its value.
    QVariant evaluate(const QString &script);
    QString content() { return evaluate(QStringLiteral("getContent()")).toString(); }
    /// Puts HTML into the page, as a reply does, and waits for its report.
    void fill(const QString &html);
    std::optional<QString> fetched();
    /// What the editor holds becomes this; false once a generous deadline has passed.
    bool waitForReport(const QString &html);

    /// The widget that gets the mouse and the keys.
    QWidget *input() const;
    void type(const QString &text);
    void press(int key, Qt::KeyboardModifiers modifiers = {});
    void click(QPoint pointInEditor, Qt::KeyboardModifiers modifiers = {});

    std::shared_ptr<EditorWebViewRef> ref;
    ComposeEditorToolbar *toolbar;
    ComposeEditorView *editor;
    QStringList reports;
    QList<QUrl> attached;
};
