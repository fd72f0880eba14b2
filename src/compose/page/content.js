'use strict';

// Quoted mail can put elements into the page that are named like members of the document and hide them, so the members
// are taken from where no element can stand.
const run = Document.prototype.execCommand.bind(document);
const isOn = Document.prototype.queryCommandState.bind(document);
const selection = Document.prototype.getSelection.bind(document);
const createElement = Document.prototype.createElement.bind(document);
const caretAt = Document.prototype.caretRangeFromPoint.bind(document);
const importNode = Document.prototype.importNode.bind(document);
const createRange = Document.prototype.createRange.bind(document);
const createTreeWalker = Document.prototype.createTreeWalker.bind(document);
const { appendChild } = Node.prototype;
const { getAttribute, setAttribute } = Element.prototype;
const editor = Document.prototype.getElementById.call(document, 'editor');
const handlers = window.webkit.messageHandlers;

const frameSelector = 'iframe, frame, object, embed, portal';

// The engine takes a second to lay out a quotation of a megabyte, so it comes into the page piece by piece and the
// person can write meanwhile. The first piece, in nodes, fills the display and is painted before the next one comes; a
// later one keeps the engine for 50 ms.
const firstPiece = 300, laterPiece = 2400;
const paintTime = 50;
let copying = null;
let copyTimer = 0;

// What is parsed outside the page loads nothing and runs nothing.
const outside = document.implementation.createHTMLDocument('');

function parse(html) {
    const parsed = outside.createElement('div');
    parsed.innerHTML = html;
    for (const frame of parsed.querySelectorAll(frameSelector)) frame.remove();
    return parsed;
}

// Copies what is below the walker's node into the target, node by node.
function* copyChildren(walker, target) {
    let node = walker.firstChild();
    if (!node) return;
    do {
        const copy = importNode(node, node instanceof HTMLTemplateElement);
        appendChild.call(target, copy);
        yield;
        yield* copyChildren(walker, copy);
        node = walker.nextSibling();
    } while (node);
    walker.parentNode();
}

function copyPiece(size) {
    for (; copying && size > 0; --size)
        if (copying.next().done) copying = null;
}

function copyRest() {
    copyPiece(Infinity);
}

function copyOn() {
    copyPiece(laterPiece);
    if (copying) copyTimer = setTimeout(copyOn);
    else report();
}

// What comes later is not to be left out of what is selected or deleted now.
editor.addEventListener('beforeinput', event => {
    if (!selection().isCollapsed || event.inputType.startsWith('delete')) copyRest();
});

window.addEventListener('keydown', event => {
    if (event.ctrlKey) copyRest();
}, true);

// What begins with what was told last only adds to it: that stays as it is, with the caret and keys that came since.
function setContent(html) {
    const isAddition = told !== null && html.startsWith(told);
    const parsed = parse(isAddition ? html.slice(told.length) : html);
    if (!isAddition) editor.replaceChildren();
    told = null;
    copying = copyChildren(outside.createTreeWalker(parsed), editor);
    copyPiece(firstPiece);
    clearTimeout(copyTimer);
    if (copying) copyTimer = setTimeout(copyOn, paintTime);
    else report();
}

const reportDelay = 300;
let reportTimer = 0;

function getContent() {
    copyRest();
    return editor.innerHTML;
}

let told = '';

function tell(handler) {
    told = getContent();
    handler.postMessage(told);
}

// While the content comes, what has come is not the message.
function report() {
    clearTimeout(reportTimer);
    if (!copying) tell(handlers.contentChanged);
}

// Keys come another way than calls and later, so the answer waits for the call and for a key pressed last of all.
const markerKeyPatience = 1000;
let answers = 0, calls = 0, markerKeys = 0;

function answerFetches() {
    for (; answers < Math.min(calls, markerKeys); ++answers)
        tell(handlers.contentFetched);
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
