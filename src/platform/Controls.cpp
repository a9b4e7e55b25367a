#include "platform/Controls.h"

#include "platform/Errors.h"
#include "platform/Twips.h"

#include <QAbstractListModel>
#include <QDateTime>
#include <QLocale>
#include <QMouseEvent>
#include <QScreen>

namespace tolvisk {

// The entries of a list box: strings, or a count and the function that makes each entry.
class StringListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;
    int size() const { return entry_ ? count_ : int(items_.size()); }
    QString at(int row) const { return entry_ ? entry_(row) : items_.at(row); }
    QStringList items() const {
        if (!entry_)
            return items_;
        QStringList list;
        list.reserve(count_);
        for (int row = 0; row < count_; ++row)
            list << entry_(row);
        return list;
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : size(); }
    QVariant data(const QModelIndex& index, int role) const override {
        // No tool tip of its own: the list's tool tip shows over the entries too.
        if (!index.isValid() || role != Qt::DisplayRole)
            return {};
        return at(index.row());
    }
    void reset(QStringList list) {
        beginResetModel();
        items_ = std::move(list);
        entry_ = nullptr;
        endResetModel();
    }
    void reset(int count, std::function<QString(int)> entry) {
        beginResetModel();
        items_.clear();
        count_ = count;
        entry_ = std::move(entry);
        endResetModel();
    }
    void insert(int row, const QString& text) {
        keepStrings();
        beginInsertRows({}, row, row);
        items_.insert(row, text);
        endInsertRows();
    }
    void remove(int row) {
        keepStrings();
        beginRemoveRows({}, row, row);
        items_.removeAt(row);
        endRemoveRows();
    }
    void set(int row, const QString& text) {
        keepStrings();
        items_[row] = text;
        emit dataChanged(index(row), index(row));
    }

private:
    // Before a single entry changes, every entry becomes a string of its own.
    void keepStrings() {
        if (entry_) {
            items_ = items();
            entry_ = nullptr;
        }
    }
    QStringList items_;
    int count_ = 0;
    std::function<QString(int)> entry_;
};

ListBox::ListBox(QWidget* parent) : QListView(parent), model_(new StringListModel(this)) {
    setModel(model_);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Click comes once the selection has changed, so that its handler reads the new ListIndex.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!settingIndex_)
            emit Click();
    });
}

int16_t ListBox::ListIndex() const {
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? int16_t(-1) : int16_t(selected.first().row());
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    // As a list box: the user moves the selection but never takes it away. A click below the
    // entries changes nothing, and Ctrl+click or Ctrl+Space on the selected entry keeps it.
    if (!index.isValid())
        return QItemSelectionModel::NoUpdate;
    const QItemSelectionModel::SelectionFlags command = QListView::selectionCommand(index, event);
    if (command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle))
        return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    return command;
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // Anywhere in the list, on an entry or below the entries of an empty one.
    QListView::mouseDoubleClickEvent(event);
    emit DblClick();
}

void ListBox::setListIndex(int16_t index) {
    if (index < -1 || index >= ListCount())
        throw invalidPropertyValue();
    settingIndex_ = true;
    if (index == -1) {
        selectionModel()->clearSelection();
        selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
    } else {
        const QModelIndex i = model_->index(index);
        selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect);
        scrollTo(i);
    }
    settingIndex_ = false;
    emit Click();
}

int16_t ListBox::ListCount() const {
    return int16_t(std::min(model_->size(), 32767));
}

QString ListBox::List(int16_t index) const {
    if (index < 0 || index >= model_->size())
        return QString();
    return model_->at(index);
}

void ListBox::setList(int16_t index, const QString& text) {
    if (index < 0 || index >= model_->size())
        throw invalidPropertyValue();
    model_->set(index, text);
}

void ListBox::AddItem(const QString& text) {
    model_->insert(model_->size(), text);
}

void ListBox::AddItem(const QString& text, int16_t index) {
    if (index < 0 || index > model_->size())
        throw invalidPropertyValue();
    model_->insert(index, text);
}

void ListBox::RemoveItem(int16_t index) {
    if (index < 0 || index >= model_->size())
        throw invalidPropertyValue();
    settingIndex_ = true;
    const bool selected = ListIndex() == index;
    model_->remove(index);
    // Removing the selected entry leaves none selected; the view would select a neighbour.
    if (selected) {
        selectionModel()->clearSelection();
        selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
    }
    settingIndex_ = false;
}

void ListBox::Clear() {
    setItems({});
}

void ListBox::setItems(QStringList items) {
    settingIndex_ = true;
    model_->reset(std::move(items));
    clearSelectionQuietly();
}

void ListBox::setItems(int count, std::function<QString(int row)> entry) {
    settingIndex_ = true;
    model_->reset(count, std::move(entry));
    clearSelectionQuietly();
}

void ListBox::clearSelectionQuietly() {
    selectionModel()->clearSelection();
    selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
    settingIndex_ = false;
}

QStringList ListBox::items() const {
    return model_->items();
}

// Toolbar

ToolBar::ToolBar(QWidget* parent) : QToolBar(parent) {}

QAction* ToolBar::addButton(const QString& key, const QString& toolTip, const QIcon& icon,
                            bool toggle) {
    QAction* action = addAction(icon, toolTip);
    action->setObjectName(key);
    action->setToolTip(toolTip);
    action->setCheckable(toggle);
    connect(action, &QAction::triggered, this, [this, key] { emit ButtonClick(key); });
    // As compact as a classic toolbar's buttons, so that a long toolbar fits its window.
    if (QWidget* button = widgetForAction(action))
        button->setFixedSize(iconSize() + QSize(7, 6));
    buttons_[key] = action;
    keys_.append(key);
    return action;
}

void ToolBar::addSeparatorButton() {
    addSeparator();
    keys_.append(QString());
}

void ToolBar::addPlaceholder(int widthPixels) {
    auto* gap = new QWidget(this);
    gap->setFixedWidth(widthPixels);
    addWidget(gap);
    keys_.append(QString());
}

QAction* ToolBar::button(const QString& key) const {
    auto it = buttons_.find(key);
    if (it == buttons_.end())
        throw RuntimeError(QStringLiteral("Element not found"), 35601);
    return it->second;
}

QString ToolBar::keyAt(int position) const {
    return position >= 1 && position <= keys_.size() ? keys_.at(position - 1) : QString();
}

int ToolBar::buttonCount() const {
    return int(keys_.size());
}

void ToolBar::setPressed(const QString& key, bool pressed) {
    button(key)->setChecked(pressed);
}

bool ToolBar::pressed(const QString& key) const {
    return button(key)->isChecked();
}

// Status bar

PanelStatusBar::PanelStatusBar(QWidget* parent) : QStatusBar(parent) {
    setSizeGripEnabled(true);
    for (auto*& label : panels_) {
        label = new QLabel(this);
        label->setMinimumWidth(twipsToPx(1440));
        label->setFrameShape(QFrame::StyledPanel);
        label->setFrameShadow(QFrame::Sunken);
    }
    addWidget(panels_[0], 1);
    panels_[1]->setFixedWidth(twipsToPx(1440));
    addWidget(panels_[1]);
    addPermanentWidget(panels_[2]);
    addPermanentWidget(panels_[3]);
    updateClock();
    connect(&clock_, &QTimer::timeout, this, &PanelStatusBar::updateClock);
    clock_.start(1000);
}

QString PanelStatusBar::panelText(int panel) const {
    return panel >= 1 && panel <= 4 ? panels_[panel - 1]->text() : QString();
}

void PanelStatusBar::setPanelText(int panel, const QString& text) {
    if (panel >= 1 && panel <= 2)
        panels_[panel - 1]->setText(text);
}

void PanelStatusBar::updateClock() {
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    panels_[2]->setText(locale.toString(now.date(), QLocale::ShortFormat));
    panels_[3]->setText(locale.toString(now.time(), QLocale::ShortFormat));
}

// Timer

Timer::Timer(QObject* parent) : QObject(parent) {
    connect(&timer_, &QTimer::timeout, this, [this] { emit Tick(); });
}

void Timer::setEnabled(bool enabled) {
    enabled_ = enabled;
    if (enabled)
        timer_.start(); // restarts the interval
    else
        timer_.stop();
}

void Timer::setInterval(int ms) {
    timer_.setInterval(ms);
}

} // namespace tolvisk
