#include "compose/EditorPage.h"

#include <QFile>
#include <QRandomGenerator>
#include <stdexcept>

/// The library is static: without this the linker may drop its resources. The macro works outside of namespaces only.
static void loadEditorFiles() {
    Q_INIT_RESOURCE(editor);
}

namespace {

const auto policy = QByteArrayLiteral("default-src 'none'; script-src 'nonce-%1'; style-src 'unsafe-inline'; "
                                      "img-src data: http: https:; form-action 'none'; base-uri 'none'");

QByteArray editorFile(const QString &name) {
    QFile file(QStringLiteral(":/editor/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("a part of the editor is missing");
    return file.readAll();
}

QByteArray editorScript() {
    loadEditorFiles();
    QByteArray script;
    for (const auto *part : {"content.js", "commands.js", "clipboard.js", "typing.js"})
        script += editorFile(QString::fromLatin1(part));
    return script;
}

} // namespace

QByteArray editorPage(const QByteArray &nonce) {
    static const auto script = editorScript(), style = editorFile(QStringLiteral("editor.css"));
    return "<!DOCTYPE html>\n<html><head><meta charset=\"UTF-8\"><title>Message</title>\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
           QByteArray(policy).replace("%1", nonce) +
           "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1, maximum-scale=1, "
           "user-scalable=no\">\n<style>" +
           style +
           "</style></head>\n<body><div id=\"editor\" contenteditable=\"true\" "
           "role=\"textbox\" aria-multiline=\"true\" aria-label=\"Message\" "
           "data-placeholder=\"Write your message...\"></div>\n<script nonce=\"" +
           nonce + "\">" + script + "</script></body></html>";
}

QByteArray makeEditorNonce() {
    QByteArray bytes(18, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(QRandomGenerator::system()->bounded(256));
    return bytes.toBase64();
}
