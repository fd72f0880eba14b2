#pragma once

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class EditorWebViewRef;
class IconButton;
class QMenu;

/// The commands of the editor. It is as tall as its rows of buttons need to be at its width, and one stop of the Tab
/// key, in which the arrow keys move.
class ComposeEditorToolbar final : public QWidget {
    Q_OBJECT

public:
    explicit ComposeEditorToolbar(std::shared_ptr<EditorWebViewRef> webViewRef, QWidget *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Toggle {
        IconButton *button;
        QString command;
    };

    void addTextButtons();
    void addParagraphButtons();
    void addInsertButtons();
    IconButton *add(const QString &symbol, const QString &name, const QString &help);
    void addAction(const QString &symbol, const QString &name, const std::function<void()> &action);
    IconButton *addCommand(const QString &symbol, const QString &name, const QString &command);
    /// A command that can be in force.
    void addToggle(const QString &symbol, const QString &name, const QString &command);
    void addMenu(const QString &symbol, const QString &name, QMenu *menu);
    /// Runs the script and leaves the caret in the text.
    void run(const QString &script);
    void render();

    void insertLink();
    void insertImageFiles();
    void insertImageAddress();
    void moveFocus(int step);
    void focusButton(IconButton *button);

    std::shared_ptr<EditorWebViewRef> m_ref;
    QList<IconButton *> m_buttons;
    /// The one that the Tab key stops at.
    IconButton *m_current = nullptr;
    std::vector<Toggle> m_toggles;
};
