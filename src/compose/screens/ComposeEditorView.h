#pragma once

#include "platform/desktop/WebView.h"

#include <QUrl>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class AttachmentReceivingWebView;
class ComposeEditorCoordinator;
class EditorWebViewRef;
class PlainEditor;

/// The message as it is written: a page of the web engine, or plain text where there is none.
class ComposeEditorView final : public QWidget {
    Q_OBJECT

public:
    explicit ComposeEditorView(std::shared_ptr<EditorWebViewRef> ref, QWidget *parent = nullptr);
    ~ComposeEditorView() override;

    /// Replaces the message unless `html` is empty or what was given last; waits for the page to be loaded.
    void setInitialContent(const QString &html);
    /// What the page holds at this moment, with the last key pressed; absent when the page is not there, and then the
    /// last `htmlContentChanged` holds. Not called once the view is gone.
    void fetchContent(std::function<void(std::optional<QString>)> done);
    void focusEditor();

public Q_SLOTS:
    void undo() { perform(EditAction::undo); }
    void redo() { perform(EditAction::redo); }
    void cut() { perform(EditAction::cut); }
    void copy() { perform(EditAction::copy); }
    void paste() { perform(EditAction::paste); }
    void selectAll() { perform(EditAction::selectAll); }

Q_SIGNALS:
    void htmlContentChanged(const QString &html);
    /// Files were dropped on the text.
    void attachFiles(const QList<QUrl> &files);
    /// Files are being held over the text, or are so no longer.
    void filesHeld(bool areHeld);

private:
    void build(std::unique_ptr<WebView> webView);
    void buildPlain();
    void watchKeys();
    void perform(EditAction action);

    std::shared_ptr<EditorWebViewRef> m_ref;
    AttachmentReceivingWebView *m_receiver = nullptr;
    ComposeEditorCoordinator *m_coordinator = nullptr;
    /// In the place of both where there is no web engine.
    PlainEditor *m_plain = nullptr;
    QString m_plainContent;
};
