#pragma once

#include "platform/ObservableObject.h"
#include "platform/desktop/WebView.h"

/// The editor's page, shared by the editor and its toolbar. The view is absent until it has been built and once it has
/// gone; what the page is to do then is not done.
class EditorWebViewRef final : public ObservableObject {
    Q_OBJECT

public:
    using ObservableObject::ObservableObject;

    Published<WebView *> webView{this};
    /// The names of the commands that are in force at the caret, such as "bold".
    Published<QStringList> activeCommands{this};

    void run(const QString &script);
    /// Puts an image from elsewhere into the text, which is the one thing of elsewhere that the page may load.
    void insertRemoteImage(const QString &address);
    void focusEditor();

    /// Lets the images in that were put into the text so far, after the page has been loaded anew.
    void allowImagesAgain();

Q_SIGNALS:
    /// The person asks for a link, or for the toolbar, by keyboard.
    void linkRequested();
    void toolbarRequested();

private:
    void allow(const QUrl &image);

    QList<QUrl> m_images;
};
