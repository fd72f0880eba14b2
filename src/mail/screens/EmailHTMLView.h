#pragma once

#include "mail/EmailHTMLCoordinator.h"
#include "platform/desktop/WebView.h"

#include <QWidget>

class EmailHTMLInput;
class PlainMailView;
class ScrollingColumn;

/// Shows the HTML body of a message. It is as tall as its content, up to millions of pixels, and belongs into a scroll
/// area that scrolls it together with what stands above and below. The web view inside is only as tall as the scroll
/// area's window: it stands still while the body passes by, and its page is scrolled instead.
class EmailHTMLView final : public QWidget, private WebViewDelegate {
    Q_OBJECT

public:
    explicit EmailHTMLView(QWidget *parent = nullptr);
    ~EmailHTMLView() override;

    /// Makes the first message as quick as the next; for idle time.
    static void warmUp();

    void setHtml(const QString &html);
    /// Lets go of the message and of the memory that its page takes.
    void clear();
    void setTheme(const ThemeDefinition &theme);
    void setShowImages(bool showImages);
    qreal contentHeight() const { return m_coordinator.contentHeight(); }

    /// Selects the next match and scrolls the column to it; an empty text ends the search.
    void findText(const QString &text, bool backward = false);
    QString selectedText() const;

public Q_SLOTS:
    void copySelection();
    void selectAll();

Q_SIGNALS:
    void contentHeightChanged(qreal height);
    void linkActivated(const QUrl &url);
    /// The link under the mouse; empty when there is none any more.
    void linkHovered(const QUrl &url);
    /// The page is on the screen.
    void painted();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void webViewDidFinish() override;
    void webViewDidPaint() override;
    void webViewDidReceiveMessage(const QString &name, const QVariant &body) override;
    void webViewDidActivateLink(const QUrl &url) override;
    void webViewDidHoverLink(const QUrl &url) override;
    void webViewProcessDidTerminate() override;

    void scheduleUpdate();
    void applyInputs();
    void load(const QByteArray &page, bool showImages);
    bool makeWebView();
    void dropWebView();
    void showAsText(const QString &reason);
    void applyHeight();
    void setOverflow(qreal overflow);
    void place();
    void followPage(qreal pageOffset);
    void setFitScale(qreal scale);
    void keepPage();
    void setPageHidden(bool isHidden);
    void reveal();
    void moveSideways(int distance);
    void applyZoom();

    EmailHTMLInputs m_inputs;
    EmailHTMLCoordinator m_coordinator;
    ScrollingColumn *m_column;
    EmailHTMLInput *m_input;
    QWidget *m_cover;
    PlainMailView *m_plainView = nullptr;
    std::unique_ptr<WebView> m_webView;
    bool m_updateScheduled = false;
    bool m_hasReloaded = false;
    /// The page of this message is still being built: what is painted now is of the one before.
    bool m_awaitsPage = false;
    /// The page that was loaded last has been on the screen.
    bool m_isPainted = false;
    /// By which the page has scaled itself down, so that its whole width can be seen.
    qreal m_fitScale = 1;
    /// In CSS pixels below the body.
    qreal m_overflow = 0;
    int m_sentOffset = -1;
};
