#pragma once

#include "ui/ThemeDefinition.h"

#include <QByteArray>
#include <QObject>
#include <QVariant>

#include <optional>

struct EmailHTMLInputs {
    QString html;
    ThemeDefinition theme;
    bool showImages = false;
};

/// Decides when a shown mail body has to be loaded anew, and how tall it is. The page is built off the main thread.
class EmailHTMLCoordinator final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    void update(const EmailHTMLInputs &inputs);
    /// A message of the height script, or the answer to `emailHeightExpression`; ignored unless it is a number.
    void receiveHeight(const QVariant &height);
    /// Asks for the page that was loaded last once more.
    void reload();
    /// Nothing is shown any more: the next body is loaded in any case, and a page that is still being built is not.
    void forget();

    /// At least 100.
    qreal contentHeight() const { return m_contentHeight; }

Q_SIGNALS:
    /// `page` is UTF-8.
    void loadRequested(const QByteArray &page, bool showImages);
    void contentHeightChanged(qreal height);
    /// The page that these inputs ask for is the one that was loaded last.
    void pageKept();

private:
    bool matchesGuards(const EmailHTMLInputs &inputs) const;
    void storeGuards(const EmailHTMLInputs &inputs);
    void buildPage(const EmailHTMLInputs &inputs);
    void load(const QByteArray &page);

    std::optional<QByteArray> m_lastLoadedHTML;
    std::optional<QString> m_lastHTML;
    std::optional<QString> m_lastThemeID;
    std::optional<bool> m_lastDarkMode;
    std::optional<bool> m_lastShowImages;
    quint64 m_build = 0, m_loadedBuild = 0;
    qreal m_contentHeight = 100;
};
