#include "compose/EditorPageScript.h"

using namespace Qt::StringLiterals;

// Quoted mail can put elements into the page that are named like members of the document and hide them, so the members
// are taken from where no element can stand.
QByteArray editorPageScript() {
    return R"(
'use strict';
const reportDelay = 300;
const frameSelector = 'iframe, frame, object, embed, portal';
const run = Document.prototype.execCommand.bind(document);
const isOn = Document.prototype.queryCommandState.bind(document);
const selection = Document.prototype.getSelection.bind(document);
const editor = Document.prototype.getElementById.call(document, 'editor');
const handlers = window.webkit.messageHandlers;
const fonts = editor.getElementsByTagName('font');
let reportTimer = 0;
let markedSize = '';

function getContent() {
    return editor.innerHTML;
}

function report() {
    clearTimeout(reportTimer);
    handlers.contentChanged.postMessage(getContent());
}

function execCmd(cmd, value) {
    run(cmd, false, value || null);
    editor.focus();
    report();
}

// Step 7 of the seven that browsers know marks what is to get the size.
function sizeMarkedText() {
    for (const font of [...fonts].filter(font => font.size === '7')) {
        font.removeAttribute('size');
        font.style.fontSize = markedSize;
    }
}

function setFontSize(size) {
    markedSize = size;
    run('fontSize', false, '7');
    sizeMarkedText();
    editor.focus();
    report();
}

function setTextColor(color) {
    execCmd('foreColor', color);
}

function setHighlightColor(color) {
    execCmd('hiliteColor', color);
}

function insertHR() {
    execCmd('insertHTML', '<hr>');
}

function setContent(html) {
    editor.innerHTML = html;
    for (const frame of editor.querySelectorAll(frameSelector)) frame.remove();
    report();
}

function insertHTML(html) {
    run('insertHTML', false, html);
    report();
}

function insertImageBase64(dataUrl) {
    run('insertImage', false, dataUrl);
    report();
}

function insertImageFile(file) {
    const reader = new FileReader();
    reader.onload = () => insertImageBase64(reader.result);
    reader.readAsDataURL(file);
}

editor.addEventListener('paste', event => {
    const data = event.clipboardData || event.originalEvent?.clipboardData;
    const image = [...data?.items ?? []].find(item => item.type.includes('image'));
    if (!image) return;
    event.preventDefault();
    insertImageFile(image.getAsFile());
});

editor.addEventListener('input', () => {
    if (markedSize) sizeMarkedText();
    clearTimeout(reportTimer);
    reportTimer = setTimeout(report, reportDelay);
});

editor.focus();
)"_ba;
}
