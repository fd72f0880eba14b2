#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <QtPlugin>

#include <functional>
#include <memory>

class QWidget;

/// What a page may fetch from elsewhere. Inline data is always shown; scripts, frames, pings and forms never load.
enum class RemoteContent {
    Blocked, ///< nothing, not even a name look-up
    Drawing, ///< images, style sheets, fonts and media
};

/// What a person does to the text of an editable page.
enum class EditAction { undo, redo, cut, copy, paste, pasteAndMatchStyle, selectAll };

struct WebViewConfiguration {
    /// Off: the page's own scripts never run, and the program's run in a world that the page cannot reach.
    /// On: the program's scripts share the page's world.
    bool allowsContentJavaScript = false;
    /// Run in this order at document end, in the main frame only.
    QStringList userScripts;
    /// Names under `window.webkit.messageHandlers`, for the program's scripts only.
    QStringList messageHandlers;

    bool operator==(const WebViewConfiguration &) const = default;
};

/// Told on the main thread. Must outlive the view or take its leave with `setDelegate(nullptr)`.
class WebViewDelegate {
public:
    virtual ~WebViewDelegate() = default;
    virtual void webViewDidFinish() {}
    /// Two frames of the page that was loaded last have been drawn.
    virtual void webViewDidPaint() {}
    virtual void webViewDidReceiveMessage(const QString &name, const QVariant &body) {
        Q_UNUSED(name)
        Q_UNUSED(body)
    }
    /// The view has refused the navigation; nothing else happens with the link.
    virtual void webViewDidActivateLink(const QUrl &url) { Q_UNUSED(url) }
    /// The link under the mouse; empty when there is none any more.
    virtual void webViewDidHoverLink(const QUrl &url) { Q_UNUSED(url) }
    /// The page's process is gone. `load` starts another one.
    virtual void webViewProcessDidTerminate() {}
};

/// A web view that shows pages of the program's own and navigates nowhere.
/// Deleting it deletes its widget; whoever holds it must let go before the widget's parent is destroyed.
class WebView {
public:
    virtual ~WebView() = default;
    virtual QWidget *widget() = 0;
    virtual void setDelegate(WebViewDelegate *delegate) = 0;

    /// `html` is UTF-8 of any size.
    virtual void load(const QByteArray &html, RemoteContent remoteContent) = 0;
    /// Lets this one image through although remote content is blocked, until the next `load`. The address must
    /// be written as the engine itself writes it, as `new URL(address).href` does.
    virtual void allowImage(const QUrl &url) = 0;
    /// `completion` may be empty; it gets an invalid value when the script fails or the page goes away.
    virtual void evaluateJavaScript(const QString &script, std::function<void(const QVariant &)> completion = {}) = 0;

    virtual void setBackgroundColor(const QColor &color) = 0;
    /// 1 is the natural size.
    virtual void setMagnification(qreal factor) = 0;
    /// Selects and scrolls to the next match; an empty text ends the search. `completion` gets the number of matches.
    virtual void findText(const QString &text, bool backward, std::function<void(int)> completion = {}) = 0;
    virtual QString selectedText() const = 0;
    virtual void copySelection() = 0;
    virtual void selectAll() = 0;
    virtual void perform(EditAction action) = 0;
    /// Presses F24, which no keyboard has: when the page sees it, it has seen all keys that were pressed before.
    virtual void pressMarkerKey() = 0;
};

/// What the web view module offers to the program that loads it.
class WebViewFactory {
public:
    virtual ~WebViewFactory() = default;
    virtual std::unique_ptr<WebView> makeWebView(const WebViewConfiguration &configuration) = 0;
};

Q_DECLARE_INTERFACE(WebViewFactory, "com.corvanite.WebViewFactory/1")
