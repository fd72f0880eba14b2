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
    if (matchesGuards(inputs))
        return;
    storeGuards(inputs);
    buildPage(inputs);
}

bool EmailHTMLCoordinator::matchesGuards(const EmailHTMLInputs &inputs) const {
    return lastHTML == inputs.html && lastThemeID == inputs.theme.id && lastDarkMode == inputs.theme.isDark &&
           lastShowImages == inputs.showImages;
}

void EmailHTMLCoordinator::storeGuards(const EmailHTMLInputs &inputs) {
    lastHTML = inputs.html;
    lastThemeID = inputs.theme.id;
    lastDarkMode = inputs.theme.isDark;
    lastShowImages = inputs.showImages;
}

void EmailHTMLCoordinator::buildPage(const EmailHTMLInputs &inputs) {
    const auto build = ++m_build;
    runInBackground([inputs] {
        return emailHTMLPage(inputs.html, inputs.theme, inputs.showImages).toUtf8();
    }).then(this, [this, build](const QByteArray &page) {
        if (build == m_build)
            load(page);
    });
}

void EmailHTMLCoordinator::load(const QByteArray &page) {
    if (lastLoadedHTML == page) {
        Q_EMIT pageKept();
        return;
    }
    lastLoadedHTML = page;
    reload();
}

void EmailHTMLCoordinator::reload() {
    if (lastLoadedHTML)
        Q_EMIT loadRequested(*lastLoadedHTML, *lastShowImages);
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
