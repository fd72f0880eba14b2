#include "compose/EditorPageScript.h"

using namespace Qt::StringLiterals;

// Quoted mail can put elements into the page that are named like members of the document and hide them, so the members
// are taken from where no element can stand.
QByteArray editorPageScript() {
    return R"(
'use strict';
const reportDelay = 300;
const markerKeyPatience = 1000;
const frameSelector = 'iframe, frame, object, embed, portal';
const run = Document.prototype.execCommand.bind(document);
const isOn = Document.prototype.queryCommandState.bind(document);
const selection = Document.prototype.getSelection.bind(document);
const createElement = Document.prototype.createElement.bind(document);
const caretAt = Document.prototype.caretRangeFromPoint.bind(document);
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

// Keys come another way than calls and later, so the answer waits for the call and for a key pressed last of all.
let answers = 0, calls = 0, markerKeys = 0;

function answerFetches() {
    for (; answers < Math.min(calls, markerKeys); ++answers)
        handlers.contentFetched.postMessage(getContent());
}

function fetchContent(number) {
    calls = number;
    answerFetches();
    setTimeout(() => {
        markerKeys = Math.max(markerKeys, number);
        answerFetches();
    }, markerKeyPatience);
}

window.addEventListener('keydown', event => {
    if (event.key !== 'F24') return;
    event.preventDefault();
    ++markerKeys;
    answerFetches();
}, true);

function execCmd(cmd, value) {
    const isCaret = selection().isCollapsed;
    run(cmd, false, value || null);
    // An address that was put in stays selected, and the next key would replace it.
    if (cmd === 'createLink' && isCaret) selection().collapseToEnd();
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

// A caret between elements has no place of its own.
function nodeAtCaret() {
    const { startContainer: node, startOffset: offset } = selection().getRangeAt(0);
    return node.nodeType === Node.ELEMENT_NODE ? node.childNodes[Math.max(offset - 1, 0)] ?? node : null;
}

// After a command the engine does not scroll to the caret by itself.
function revealCaret() {
    const caret = selection().getRangeAt(0).cloneRange();
    const node = nodeAtCaret();
    if (node) caret.selectNode(node);
    const { bottom } = caret.getBoundingClientRect();
    if (bottom < 0) window.scrollBy(0, bottom - window.innerHeight / 2);
    else if (bottom > window.innerHeight) window.scrollBy(0, bottom - window.innerHeight + 12);
}

function insertHR() {
    execCmd('insertHTML', '<hr>');
    revealCaret();
}

function setContent(html) {
    editor.innerHTML = html;
    for (const frame of editor.querySelectorAll(frameSelector)) frame.remove();
    report();
}

function insertHTML(html) {
    run('insertHTML', false, html);
    report();
    revealCaret();
}

function insertImageBase64(dataUrl) {
    run('insertImage', false, dataUrl);
    report();
    // It has no height before it is there.
    const image = nodeAtCaret();
    if (image instanceof HTMLImageElement) image.decode().then(revealCaret, () => {});
}

function insertImageFile(file) {
    const reader = new FileReader();
    reader.onload = () => insertImageBase64(reader.result);
    reader.readAsDataURL(file);
}

// The engine hangs for good over fonts in the style sheets of what is pasted or dropped: those stay outside.
const styleSheet = /<(style|link)\b/i;

function insertWithoutStyleSheets(html) {
    const foreign = createElement('template');
    foreign.innerHTML = html.replace(/<!--(Start|End)Fragment-->/g, '');
    for (const element of foreign.content.querySelectorAll(`style, link, script, meta, title, base, ${frameSelector}`))
        element.remove();
    run('insertHTML', false, foreign.innerHTML);
    revealCaret();
}

editor.addEventListener('paste', event => {
    const data = event.clipboardData || event.originalEvent?.clipboardData;
    const image = [...data?.items ?? []].find(item => item.type.includes('image'));
    const html = data?.getData('text/html') ?? '';
    if (!image && !styleSheet.test(html)) return;
    event.preventDefault();
    if (image) insertImageFile(image.getAsFile());
    else insertWithoutStyleSheets(html);
});

editor.addEventListener('drop', event => {
    const html = event.dataTransfer.getData('text/html');
    if (!styleSheet.test(html)) return;
    event.preventDefault();
    const place = caretAt(event.clientX, event.clientY);
    if (place) selection().collapse(place.startContainer, place.startOffset);
    insertWithoutStyleSheets(html);
});

// A paragraph in a script that runs from right to left says so itself, since the reader's program has no style of ours.
const rightToLeft = /[\u0590-\u08ff\ufb1d-\ufdff\ufe70-\ufeff]/;
const blockSelector = 'p, div, li, blockquote, td, th, pre, h1, h2, h3, h4, h5, h6';

function caretElement() {
    const node = selection().anchorNode;
    return node?.nodeType === Node.ELEMENT_NODE ? node : node?.parentElement;
}

function directTypedText() {
    if (caretElement()?.closest(blockSelector) === editor) run('formatBlock', false, 'div');
    const block = caretElement()?.closest(blockSelector);
    if (block && block !== editor && !block.dir) block.dir = 'auto';
}

function directPastedText() {
    for (const block of editor.children)
        if (block.matches(blockSelector) && !block.dir && rightToLeft.test(block.textContent)) block.dir = 'auto';
}

let isDirecting = false;
function direct(event) {
    if (isDirecting) return;
    isDirecting = true;
    if (event.inputType === 'insertFromPaste') directPastedText();
    if (rightToLeft.test(event.data ?? '')) directTypedText();
    isDirecting = false;
}

editor.addEventListener('input', event => {
    if (markedSize) sizeMarkedText();
    if (!event.isComposing) direct(event);
    clearTimeout(reportTimer);
    reportTimer = setTimeout(report, reportDelay);
});

editor.addEventListener('compositionend', direct);

const shownCommands = ['bold', 'italic', 'underline', 'strikeThrough', 'justifyLeft', 'justifyCenter', 'justifyRight',
    'insertUnorderedList', 'insertOrderedList'];
let lastFormat = '';
let formatTimer = 0;

function reportFormat() {
    formatTimer = 0;
    const format = shownCommands.filter(command => isOn(command)).join(' ');
    if (format === lastFormat) return;
    lastFormat = format;
    handlers.formatChanged.postMessage(format);
}

function scheduleFormat() {
    formatTimer ||= setTimeout(reportFormat, 100);
}

EventTarget.prototype.addEventListener.call(document, 'selectionchange', scheduleFormat);
editor.addEventListener('input', scheduleFormat);

const keyCommands = { 'B': 'bold', 'I': 'italic', 'U': 'underline', ']': 'indent', '[': 'outdent' };

editor.addEventListener('keydown', event => {
    const command = keyCommands[event.key.toUpperCase()];
    if (!command || !event.ctrlKey || event.altKey || event.shiftKey) return;
    event.preventDefault();
    execCmd(command, null);
});

// Nothing that is pressed leads away; with Ctrl held a link is opened outside.
editor.addEventListener('click', event => {
    const link = event.target.closest('a[href], area[href]');
    if (!link) return;
    event.preventDefault();
    if (event.ctrlKey) handlers.linkOpened.postMessage(link.href);
}, true);

editor.addEventListener('submit', event => event.preventDefault(), true);

editor.focus();
)"_ba;
}
