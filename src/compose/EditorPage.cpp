#include "compose/EditorPage.h"

#include "compose/EditorPageScript.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

const auto policy = "default-src 'none'; script-src 'nonce-%1'; style-src 'unsafe-inline'; "
                    "img-src data: http: https:; form-action 'none'; base-uri 'none'"_ba;

// The paper is white in every theme: the message will be read on white, with the colours that were chosen here.
const auto style = R"(
:root { color-scheme: light; }
* { box-sizing: border-box; }
html, body { margin: 0; padding: 0; height: 100%; font-family: -apple-system, system-ui, sans-serif; }
#editor { min-height: 100%; padding: 12px 16px; font-size: 15px; line-height: 1.6; outline: none;
          word-wrap: break-word; overflow-wrap: break-word; -webkit-user-modify: read-write; }
#editor:empty:before { content: attr(data-placeholder); color: #9ca3af; pointer-events: none; }
#editor ul, #editor ol { padding-left: 24px; }
#editor a { color: #2563eb; }
#editor blockquote { margin: 8px 0 8px 12px; padding-left: 12px; border-left: 3px solid #d1d5db; color: #6b7280; }
#editor img { max-width: 100%; height: auto; }
#editor hr { border: none; border-top: 1px solid #d1d5db; margin: 16px 0; }
::-webkit-scrollbar { width: 12px; height: 12px; }
::-webkit-scrollbar-thumb { background: #bbc6d4; background-clip: content-box;
                            border: 3px solid transparent; border-radius: 6px; }
::-webkit-scrollbar-thumb:hover { background-color: #a4b1c3; border-width: 2px; }
::-webkit-scrollbar-thumb:active { background-color: #94a3b8; border-width: 2px; }
)"_ba;

} // namespace

QByteArray editorPage(const QByteArray &nonce) {
    return "<!DOCTYPE html>\n<html><head><meta charset=\"UTF-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
           QByteArray(policy).replace("%1", nonce) +
           "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1, maximum-scale=1, "
           "user-scalable=no\">\n<style>" +
           style +
           "</style></head>\n<body><div id=\"editor\" contenteditable=\"true\" "
           "role=\"textbox\" aria-multiline=\"true\" aria-label=\"Message\" "
           "data-placeholder=\"Write your message...\"></div>\n<script nonce=\"" +
           nonce + "\">" + editorPageScript() + "</script></body></html>";
}

QByteArray makeEditorNonce() {
    QByteArray bytes(18, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(QRandomGenerator::system()->bounded(256));
    return bytes.toBase64();
}
