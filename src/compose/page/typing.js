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
    const font = caretElement()?.closest(markedFont);
    if (font && markedSize) sizeMarkedText(font);
    if (!event.isComposing) direct(event);
    clearTimeout(reportTimer);
    reportTimer = setTimeout(report, reportDelay);
});

editor.addEventListener('compositionend', direct);

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
