// Some commands put the caret at the start of its line, however much stands before it.
function keepingCaret(command) {
    const { anchorNode, anchorOffset, isCollapsed } = selection();
    const isInText = isCollapsed && anchorNode?.nodeType === Node.TEXT_NODE && anchorOffset > 0;
    const offset = isInText ? textLengthBefore(anchorNode, anchorOffset) : 0;
    command();
    if (offset > 0) placeCaretBehind(offset);
}

function textLengthBefore(node, offset) {
    const range = createRange();
    range.setStart(editor, 0);
    range.setEnd(node, offset);
    return range.toString().length;
}

function placeCaretBehind(length) {
    const texts = createTreeWalker(editor, NodeFilter.SHOW_TEXT);
    for (let text = texts.nextNode(); text; text = texts.nextNode()) {
        if (length <= text.length) return selection().collapse(text, length);
        length -= text.length;
    }
}

function execCmd(cmd, value) {
    const isCaret = selection().isCollapsed;
    if (/List$/.test(cmd)) keepingCaret(() => run(cmd, false, null));
    else run(cmd, false, value || null);
    // An address that was put in stays selected, and the next key would replace it.
    if (cmd === 'createLink' && isCaret) selection().collapseToEnd();
    editor.focus();
    report();
    // A command at the caret changes no selection.
    scheduleFormat();
}

// Step 7 of the seven that browsers know marks what is to get the size.
const markedFont = 'font[size="7"]';
let markedSize = '';

function sizeMarkedText(font) {
    font.removeAttribute('size');
    font.style.fontSize = markedSize;
}

function setFontSize(size) {
    markedSize = size;
    run('fontSize', false, '7');
    editor.querySelectorAll(markedFont).forEach(sizeMarkedText);
    editor.focus();
    report();
}

function setTextColor(color) {
    execCmd('foreColor', color);
}

// At the caret the engine knows no end of a highlight but the colour that was there before any.
function setHighlightColor(color) {
    execCmd('hiliteColor', color === 'transparent' && selection().isCollapsed ? 'initial' : color);
}

function insertHR() {
    execCmd('insertHTML', '<hr>');
    revealCaret();
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
