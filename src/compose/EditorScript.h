#pragma once

#include <QString>

/// The texts that the program has the editor's page run, one call each.
struct EditorScript {
    static QString setContent(const QString &html);
    /// Has the page post what it holds to the handler "contentFetched" when the marker key does not make it do so soon.
    /// Fetches are numbered from 1.
    static QString fetchContent(int number);
    static QString command(const QString &name);
    /// `url` as it was typed.
    static QString createLink(const QString &url);
    static QString setFontSize(const QString &size);
    static QString setTextColor(const QString &color);
    static QString setHighlightColor(const QString &color);
    static QString insertRule();
    /// `url` may be a data URL.
    static QString insertImage(const QString &url);
    /// Evaluates to the address as the engine writes it; fails for one that leads nowhere.
    static QString normalizedAddress(const QString &url);
};
