#include "compose/screens/ComposeAttachmentList.h"

#include "ui/FileSizeText.h"
#include "ui/screens/AccessibleRole.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ClampedLabel.h"
#include "ui/screens/SymbolView.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int symbolSize = 16;
constexpr int mostRows = 4;

} // namespace

ComposeAttachmentList::ComposeAttachmentList(std::shared_ptr<ComposeState> state, QWidget *parent)
    : QScrollArea(parent)
    , m_state(std::move(state)) {
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(tr("Attachments"));
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    observe(m_state.get(), this, &ComposeAttachmentList::render);
}

void ComposeAttachmentList::render() {
    const auto &message = *m_state->viewModel;
    std::vector<QUuid> files;
    for (const auto &file : message.attachments.get())
        files.push_back(file.id);
    if (std::exchange(m_isFilled, true) && files == m_files && message.forwardedAttachments.get() == m_forwarded)
        return;
    m_files = std::move(files);
    m_forwarded = message.forwardedAttachments;
    const auto focused = focusedRow();
    makeRows();
    restoreFocus(focused);
}

void ComposeAttachmentList::makeRows() {
    auto *rows = new QWidget;
    auto *column = new QVBoxLayout(rows);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    setWidget(rows);
    auto *message = m_state->viewModel.get();
    for (const auto &carried : m_forwarded)
        addRow(u"paperclip"_s, carried.filename, carried.size,
               [message, id = carried.id] { message->removeForwardedAttachment(id); });
    for (const auto &file : message->attachments.get())
        addRow(file.contentType.startsWith("image/"_L1) ? u"photo"_s : u"paperclip"_s, file.filename, file.data.size(),
               [message, id = file.id] { message->removeAttachment(id); });
    const auto count = column->count();
    // As long as it has no parent, showing it would open a window; a parent shows it by itself.
    if (count == 0 || parentWidget())
        setVisible(count > 0);
    if (count > 0) {
        const auto row = column->itemAt(0)->sizeHint().height();
        setMinimumHeight(row);
        setMaximumHeight(std::min(count, mostRows) * (row + column->spacing()));
    }
    column->addStretch(1);
}

void ComposeAttachmentList::addRow(const QString &symbol, const QString &name, qint64 size,
                                   std::function<void()> remove) {
    auto *row = new QWidget;
    setAccessibleRole(row, QAccessible::Grouping);
    row->setAccessibleName(u"%1, %2"_s.arg(name, fileSizeText(size)));
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(8, 2, 4, 2);
    layout->setSpacing(8);
    auto *removeButton = new IconButton(u"xmark.circle.fill"_s, tr("Remove %1").arg(name));
    layout->addWidget(new SymbolView(symbol, symbolSize));
    auto *words = new ClampedLabel(1);
    words->setElideMode(Qt::ElideMiddle); // names differ in their ends
    words->setText(name);
    layout->addWidget(words, 1);
    layout->addWidget(new ThemeLabel(fileSizeText(size), TextStyle::caption, TextRole::secondary));
    layout->addWidget(removeButton);
    // In the next turn: the row goes with the attachment, and its button with it.
    connect(removeButton, &IconButton::clicked, m_state->viewModel.get(), remove, Qt::QueuedConnection);
    widget()->layout()->addWidget(row);
    row->show(); // now, so that its button can be given the focus
}

int ComposeAttachmentList::focusedRow() const {
    const auto buttons = findChildren<IconButton *>();
    for (int row = 0; row < buttons.size(); ++row)
        if (buttons[row]->hasFocus())
            return row;
    return -1;
}

// Whoever removes one attachment by keyboard may want to remove the next.
void ComposeAttachmentList::restoreFocus(int row) {
    const auto buttons = findChildren<IconButton *>();
    if (row >= 0 && !buttons.isEmpty())
        buttons[std::min<int>(row, int(buttons.size()) - 1)]->setFocus();
}
