#include "compose/screens/ContactSuggestions.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRows = 6;

QString rowText(const Contact &contact) {
    const auto name = contact.name.value_or(QString());
    return name.isEmpty() ? contact.email : u"%1 <%2>"_s.arg(name, contact.email);
}

} // namespace

ContactSuggestions::ContactSuggestions(std::shared_ptr<ComposeState> state, QLineEdit *field)
    : QListWidget(field)
    , m_state(std::move(state))
    , m_field(field) {
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Suggestions"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    setUniformItemSizes(true);
    m_field->installEventFilter(this);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { choose(row(item)); });
    observe(m_state.get(), this, &ContactSuggestions::render);
}

bool ContactSuggestions::eventFilter(QObject *watched, QEvent *event) {
    if (!isVisible())
        return QListWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::FocusOut:
        m_state->closeSuggestions();
        break;
    case QEvent::Resize:
    case QEvent::Move:
        place();
        break;
    // Escape would reach the shortcut that closes the whole screen, were it not claimed here.
    case QEvent::ShortcutOverride:
        event->setAccepted(static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape);
        return event->isAccepted();
    case QEvent::KeyPress:
        return takeKey(static_cast<QKeyEvent *>(event)->key());
    default:
        break;
    }
    return QListWidget::eventFilter(watched, event);
}

bool ContactSuggestions::takeKey(int key) {
    switch (key) {
    case Qt::Key_Down:
        move(1);
        return true;
    case Qt::Key_Up:
        move(-1);
        return true;
    case Qt::Key_Escape:
        m_state->closeSuggestions();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentRow() < 0)
            return false;
        choose(currentRow());
        return true;
    default:
        return false;
    }
}

void ContactSuggestions::move(int step) {
    const int first = step > 0 ? -1 : count();
    setCurrentRow(((currentRow() < 0 ? first : currentRow()) + step + count()) % count());
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(currentRow());
    QAccessible::updateAccessibility(&event);
}

void ContactSuggestions::choose(int row) {
    const auto contact = m_shown.at(std::size_t(row));
    m_state->chooseSuggestion(contact);
}

void ContactSuggestions::render() {
    if (m_shown != m_state->contactSuggestions.get()) {
        m_shown = m_state->contactSuggestions;
        clear();
        for (const auto &contact : m_shown)
            addItem(rowText(contact));
        // A contact takes the place of all that was typed: none is taken unless the person walks there.
        setCurrentRow(-1);
    }
    const bool isWanted = m_state->showSuggestions && m_field->hasFocus();
    if (isWanted)
        place();
    setVisible(isWanted);
}

// It lies over whatever stands below the field on its screen.
void ContactSuggestions::place() {
    auto *screen = m_field->parentWidget()->parentWidget();
    if (parentWidget() != screen)
        setParent(screen);
    const auto rows = std::min(count(), mostRows);
    const auto height = rows * sizeHintForRow(0) + 2 * frameWidth();
    setGeometry({m_field->mapTo(screen, QPoint(0, m_field->height() + 2)), QSize(m_field->width(), height)});
    raise();
}
