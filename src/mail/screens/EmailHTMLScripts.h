#pragma once

#include "platform/desktop/WebView.h"

/// The names of the handlers to which the page of a message reports.
struct EmailHTMLHandler {
    static inline const QString height = QStringLiteral("heightHandler");
    /// How far the page sticks out below its body, in CSS pixels.
    static inline const QString overflow = QStringLiteral("overflow");
    /// Where something other than the column has scrolled the page to, in CSS pixels.
    static inline const QString scrolled = QStringLiteral("scrolled");
    /// By how much the page has scaled itself down to its width, from 0.5 to 1.
    static inline const QString fit = QStringLiteral("fit");
};

/// The web view of a message: no scripts but the program's own.
WebViewConfiguration emailWebViewConfiguration();
