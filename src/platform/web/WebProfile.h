#pragma once

#include "platform/web/PageScheme.h"

#include <QWebEngineProfile>

#include <memory>

/// The one profile of all views: off the record, with everything off that a message has no business with.
class WebProfile final : public QWebEngineProfile {
    Q_OBJECT

public:
    /// Lives as long as a view holds it, since a profile must not go before its pages.
    static std::shared_ptr<WebProfile> shared();
    WebProfile();

    PageSchemeHandler *pages() { return &m_schemeHandler; }

private:
    PageSchemeHandler m_schemeHandler;
};
