#pragma once

#include <QWidget>

#include <memory>

class EditorWebViewRef;
class IconButton;

/// The commands of the editor. It is as tall as its rows of buttons need to be at its width, and one stop of the Tab
/// key, in which the arrow keys move.
class ComposeEditorToolbar final : public QWidget {
    Q_OBJECT

public:
    explicit ComposeEditorToolbar(std::shared_ptr<EditorWebViewRef> webViewRef, QWidget *parent = nullptr);

private:
    IconButton *add(const QString &symbol, const QString &name, const QString &help);
    void addCommand(const QString &symbol, const QString &name, const QString &command);

    std::shared_ptr<EditorWebViewRef> m_ref;
};
