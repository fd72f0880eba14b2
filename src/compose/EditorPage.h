#pragma once

#include <QByteArray>

/// The page in which a message is written. Its policy forbids everything but its own script, which carries `nonce`,
/// inline style and the images that the request gate lets through: quoted mail is a stranger's program.
QByteArray editorPage(const QByteArray &nonce);

/// For one load of the page; nobody who writes mail can guess it.
QByteArray makeEditorNonce();
