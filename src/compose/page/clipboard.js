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

// What is cut or copied has its relative addresses written out from the page's own, which lead nowhere elsewhere.
const pageAddress = location.href;
const pageFolder = pageAddress.slice(0, pageAddress.lastIndexOf('/') + 1);

function shortenAddresses(attribute) {
    for (const element of editor.querySelectorAll(`[${attribute}^="${pageFolder}"]`)) {
        const address = getAttribute.call(element, attribute);
        setAttribute.call(element, attribute, address.replace(pageAddress, '').replace(pageFolder, ''));
    }
}

editor.addEventListener('input', event => {
    if (!['insertFromPaste', 'insertFromDrop'].includes(event.inputType)) return;
    shortenAddresses('href');
    shortenAddresses('src');
});
