#pragma once

#include <QList>
#include <QString>
#include <span>

/// What becomes of an address that a mail names.
enum class Loading {
    /// Nothing before images are shown, then loaded: an image, a style sheet, a font or media.
    drawing,
    /// Never loaded from a mail, though the engine would.
    forbidden,
    /// The engine itself does not load it; it stands here for the day when it does.
    unsupported
};

/// One way by which a mail can try to load something or to run a script that does.
struct HostileMail {
    const char *name;
    Loading loading;
    /// "URL/" stands for an address below a host of this mail's own, "HOST" for the host alone, and "ID" for a word
    /// that no other mail uses.
    const char *html;
    /// It changes what is meant by the rest of the page, or leaves the page.
    bool needsOwnPage = false;
};

std::span<const HostileMail> hostileMails();

/// The host that the mail calls, made for one run: names are looked up once.
QString hostOf(const HostileMail &mail, const QString &run);
QString htmlOf(const HostileMail &mail, const QString &run, quint16 port);

/// A page's worth of mails: those that get along with each other first, then each of the others alone.
QList<QList<HostileMail>> hostilePages();
