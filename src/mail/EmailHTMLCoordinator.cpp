#include "mail/EmailHTMLCoordinator.h"

#include "mail/EmailHTMLPage.h"
#include "platform/BackgroundWork.h"

#include <cmath>

namespace {

constexpr qreal minimumHeight = 100;

bool isNumber(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return std::isfinite(value.toDouble());
    default:
        return false;
    }
}

} // namespace

void EmailHTMLCoordinator::update(const EmailHTMLInputs &inputs) {
    if (matchesGuards(inputs)) {
        if (m_loadedBuild == m_build)
            Q_EMIT pageKept();
        return;
    }
    storeGuards(inputs);
    buildPage(inputs);
}

bool EmailHTMLCoordinator::matchesGuards(const EmailHTMLInputs &inputs) const {
    return m_lastHTML == inputs.html && m_lastThemeID == inputs.theme.id && m_lastDarkMode == inputs.theme.isDark &&
           m_lastShowImages == inputs.showImages;
}

void EmailHTMLCoordinator::storeGuards(const EmailHTMLInputs &inputs) {
    m_lastHTML = inputs.html;
    m_lastThemeID = inputs.theme.id;
    m_lastDarkMode = inputs.theme.isDark;
    m_lastShowImages = inputs.showImages;
}

void EmailHTMLCoordinator::buildPage(const EmailHTMLInputs &inputs) {
    const auto build = ++m_build;
    const auto makePage = [inputs] { return emailHTMLPage(inputs.html, inputs.theme, inputs.showImages).toUtf8(); };
    runInBackground(makePage, this, [this, build](const QByteArray &page) {
        if (build != m_build)
            return;
        m_loadedBuild = build;
        load(page);
    });
}

void EmailHTMLCoordinator::load(const QByteArray &page) {
    if (m_lastLoadedHTML == page) {
        Q_EMIT pageKept();
        return;
    }
    m_lastLoadedHTML = page;
    reload();
}

void EmailHTMLCoordinator::reload() {
    if (m_lastLoadedHTML)
        Q_EMIT loadRequested(*m_lastLoadedHTML, *m_lastShowImages);
}

void EmailHTMLCoordinator::forget() {
    ++m_build;
    m_lastLoadedHTML = std::nullopt;
    m_lastHTML = std::nullopt;
}

void EmailHTMLCoordinator::receiveHeight(const QVariant &height) {
    if (!isNumber(height))
        return;
    const auto newHeight = std::max(height.toDouble(), minimumHeight);
    if (std::abs(newHeight - m_contentHeight) <= 1)
        return;
    m_contentHeight = newHeight;
    Q_EMIT contentHeightChanged(newHeight);
}
