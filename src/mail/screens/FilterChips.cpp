#include "mail/screens/FilterChips.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/FlowLayout.h"

namespace {

constexpr int spacing = 6;

} // namespace

FilterChips::FilterChips(std::shared_ptr<EmailListState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state)) {
    auto *layout = new FlowLayout(spacing, this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto &chip : m_state->filters->chips()) {
        const auto number = m_chips.size();
        m_chips.push_back(new Chip(chip.icon, chip.text));
        layout->addWidget(m_chips.back());
        connect(m_chips.back(), &Chip::clicked, this, [this, number] { press(number); });
    }
    observe(m_state.get(), this, &FilterChips::render);
}

void FilterChips::press(std::size_t number) {
    m_state->filters->chips()[number].press();
}

void FilterChips::render() {
    const auto chips = m_state->filters->chips();
    for (std::size_t number = 0; number < m_chips.size(); ++number) {
        if (m_chips[number]->text() != chips[number].text)
            m_chips[number]->setText(chips[number].text);
        m_chips[number]->setChecked(chips[number].isMarked);
    }
    setVisible(m_state->viewModel->hasActiveFilters());
}
