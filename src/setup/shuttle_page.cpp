#include "setup/shuttle_page.h"

#include "core/arrangement.h"
#include "setup/display_option_tables.h"
#include "setup/shuttle_picture.h"
#include "widgets/push_button.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

namespace velmora {

namespace {

/// Where the list of a button stands: about where the button is on the disc, in reading order.
struct Place final {
    int line;
    int column;
};
constexpr std::array<Place, ShuttleButtons.size()> Places = {Place{1, 0}, Place{0, 0}, Place{0, 1},
                                                             Place{0, 2}, Place{1, 2}};

} // namespace

ShuttlePage::ShuttlePage(Settings& settings, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_picture(new ShuttlePicture(this)) {
    setObjectName(QStringLiteral("Picture3"));
    const int em = fontMetrics().height();
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(em);
    grid->setVerticalSpacing(em);
    for (int number = 1; number <= static_cast<int>(ShuttleButtons.size()); ++number) {
        const Place& place = Places.at(static_cast<std::size_t>(number - 1));
        addList(*grid, number, place.line, place.column);
    }
    grid->addWidget(m_picture, 1, 1, Qt::AlignCenter);
    auto* note = new QLabel(
        QStringLiteral("The ShuttleXpress works in every show, by its keys. When this page is "
                       "saved, no other controller is in use: the setup then reads \"%1\".")
            .arg(controllerText(controller::None)),
        this);
    note->setObjectName(QStringLiteral("ShuttleNote"));
    note->setWordWrap(true);
    grid->addWidget(note, 2, 0, 1, 3);
    auto* buttons = new QHBoxLayout;
    grid->addLayout(buttons, 3, 0, 1, 3);
    buttons->addStretch();
    auto* save = new CB(QStringLiteral("CB2"), QStringLiteral("Save"), this);
    auto* cancel = new CB(QStringLiteral("CB1"), QStringLiteral("Cancel"), this);
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    connect(save, &CB::clicked, this, &ShuttlePage::CB2_Click);
    connect(cancel, &CB::clicked, this, &ShuttlePage::CB1_Click);
}

void ShuttlePage::addList(QGridLayout& grid, int number, int line, int column) {
    auto* cell = new QVBoxLayout;
    cell->setSpacing(fontMetrics().height() / 4);
    grid.addLayout(cell, line, column, Qt::AlignHCenter);
    const QString heading = QStringLiteral("Button %1").arg(number);
    cell->addWidget(new QLabel(heading, this));
    auto* list = new QListWidget(this);
    list->setObjectName(QStringLiteral("Button%1").arg(number));
    list->setAccessibleName(heading);
    list->setTabKeyNavigation(false);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const ButtonFunction& function : ButtonFunctions) {
        list->addItem(QString::fromUtf16(function.text));
    }
    const int frame = 2 * list->frameWidth();
    list->setFixedHeight(list->sizeHintForRow(0) * list->count() + frame);
    list->setFixedWidth(list->sizeHintForColumn(0) + frame + fontMetrics().height());
    list->installEventFilter(this);
    m_lists.at(static_cast<std::size_t>(number - 1)) = list;
    cell->addWidget(list);
    cell->addStretch();
}

void ShuttlePage::showFunctions() {
    limitShuttleButtons(m_settings);
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        m_lists[i]->setCurrentRow(m_settings.*ShuttleButtons[i].setting - 1);
    }
}

void ShuttlePage::begin() {
    limitShuttleButtons(m_settings);
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        m_backups[i] = m_settings.*ShuttleButtons[i].setting;
    }
    m_lists.front()->setFocus();
}

void ShuttlePage::CB2_Click() {
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        const auto selected = m_lists[i]->selectedItems();
        m_settings.*ShuttleButtons[i].setting =
            selected.isEmpty() ? 0 : m_lists[i]->row(selected.first()) + 1;
    }
    limitShuttleButtons(m_settings);
    Q_EMIT saved();
}

void ShuttlePage::CB1_Click() {
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        m_settings.*ShuttleButtons[i].setting = m_backups[i];
    }
    Q_EMIT cancelled();
}

bool ShuttlePage::eventFilter(QObject* watched, QEvent* event) {
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        if (watched == m_lists[i] && event->type() == QEvent::FocusIn) {
            m_picture->markButton(static_cast<int>(i) + 1);
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace velmora
