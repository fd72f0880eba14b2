#pragma once

#include "compose/ComposeState.h"
#include "mail/FocusedActions.h"
#include "ui/screens/MailThemeBackground.h"

#include <QPointer>

class AIWriteSheet;
class ComposeEditorView;
class ComposeFields;
class DropFrame;
class EditorWebViewRef;
class ErrorBanner;
class TemplatePickerSheet;
class ThemeLabel;

/// The screen on which a message is written. Tells `FocusedActions` what can be done with it for as long as it lives.
class ComposeView final : public MailThemeBackground {
    Q_OBJECT
public:
    /// `actions` outlives it.
    ComposeView(std::shared_ptr<ComposeState> state, FocusedActions &actions, QWidget *parent = nullptr);
    ~ComposeView() override;

    ComposeState &state() { return *m_state; }
    ComposeEditorView *editor() const { return m_editor; }

Q_SIGNALS:
    /// Sent or given up: there is nothing more to write here.
    void dismissed();
    void titleChanged(const QString &title);

protected:
    bool event(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void layOut(QWidget *toolbar, QWidget *attachments, QWidget *bottomBar);
    QWidget *makeHeader();
    void connectEditor();
    void addShortcuts();
    void beginToWrite();
    void giveUp();
    void send();
    void render();
    void publishActions();
    void renderSheets();
    void showAttachmentPicker();

    std::shared_ptr<ComposeState> m_state;
    FocusedActions &m_actions;
    std::shared_ptr<EditorWebViewRef> m_editorRef;
    ThemeLabel *m_title;
    ComposeFields *m_fields;
    ErrorBanner *m_error;
    ComposeEditorView *m_editor;
    DropFrame *m_dropFrame;
    QPointer<TemplatePickerSheet> m_templates;
    QPointer<AIWriteSheet> m_aiSheet;
    bool m_showsPicker = false;
    bool m_hasBegun = false;
    /// The text is being fetched for a send.
    bool m_awaitsText = false;
};
