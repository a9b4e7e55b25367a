#include "platform/Controls.h"

#include "platform/Errors.h"
#include "platform/TextFile.h"
#include "platform/Twips.h"

#include <QAbstractListModel>
#include <QDateTime>
#include <QLocale>
#include <QMouseEvent>
#include <QScreen>
#include <QTextBlock>

namespace tolvisk {

namespace {} // namespace

// The entries of a list box, one string each.
class StringListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;
    QStringList items;
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : int(items.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        // No tool tip of its own: the list's tool tip shows over the entries too.
        if (!index.isValid() || role != Qt::DisplayRole)
            return {};
        return items.at(index.row());
    }
    void reset(QStringList list) {
        beginResetModel();
        items = std::move(list);
        endResetModel();
    }
    void insert(int row, const QString& text) {
        beginInsertRows({}, row, row);
        items.insert(row, text);
        endInsertRows();
    }
    void remove(int row) {
        beginRemoveRows({}, row, row);
        items.removeAt(row);
        endRemoveRows();
    }
    void set(int row, const QString& text) {
        items[row] = text;
        emit dataChanged(index(row), index(row));
    }
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
    return int16_t(std::min<qsizetype>(model_->items.size(), 32767));
}

QString ListBox::List(int16_t index) const {
    if (index < 0 || index >= model_->items.size())
        return QString();
    return model_->items.at(index);
}

void ListBox::setList(int16_t index, const QString& text) {
    if (index < 0 || index >= model_->items.size())
        throw invalidPropertyValue();
    model_->set(index, text);
}

void ListBox::AddItem(const QString& text) {
    model_->insert(int(model_->items.size()), text);
}

void ListBox::AddItem(const QString& text, int16_t index) {
    if (index < 0 || index > model_->items.size())
        throw invalidPropertyValue();
    model_->insert(index, text);
}

void ListBox::RemoveItem(int16_t index) {
    if (index < 0 || index >= model_->items.size())
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
    selectionModel()->clearSelection();
    selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
    settingIndex_ = false;
}

QStringList ListBox::items() const {
    return model_->items;
}

// Text box

TextBox::TextBox(QWidget* parent) : QPlainTextEdit(parent) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

QString TextBox::Text() const {
    // The document's own characters: a non-breaking space stays one. Only the line ends between
    // its blocks are the widget's, and they are CR LF to the program.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, kCrLf);
    return text;
}

void TextBox::setText(const QString& text) {
    QString plain = text;
    plain.replace(kCrLf, QLatin1String("\n"));
    plain.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    setPlainText(plain);
}

namespace {

// Positions in the program's text (CR LF counts two) and in the widget (one per line end).
int toProgram(const QString& plain, int pos) {
    return pos + int(QStringView(plain).left(pos).count(QLatin1Char('\n')));
}

int toWidget(const QString& plain, int pos) {
    int program = 0;
    for (int i = 0; i < plain.size(); ++i) {
        const int step = plain[i] == QLatin1Char('\n') ? 2 : 1;
        if (program + step > pos)
            return i;
        program += step;
    }
    return int(plain.size());
}

} // namespace

int TextBox::SelStart() const {
    return toProgram(toPlainText(), textCursor().selectionStart());
}

void TextBox::setSelStart(int start) {
    QTextCursor c = textCursor();
    c.setPosition(toWidget(toPlainText(), std::max(0, start)));
    setTextCursor(c);
}

int TextBox::SelLength() const {
    const QString plain = toPlainText();
    const QTextCursor c = textCursor();
    return toProgram(plain, c.selectionEnd()) - toProgram(plain, c.selectionStart());
}

void TextBox::setSelLength(int length) {
    const QString plain = toPlainText();
    QTextCursor c = textCursor();
    const int start = toProgram(plain, c.selectionStart());
    c.setPosition(toWidget(plain, start));
    c.setPosition(toWidget(plain, start + std::max(0, length)), QTextCursor::KeepAnchor);
    setTextCursor(c);
}

QString TextBox::SelText() const {
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, kCrLf);
    return text;
}

void TextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // The word under the pointer, delimited by blanks and line ends, not by punctuation: a
    // move number keeps its dot.
    const QString plain = toPlainText();
    int pos = cursorForPosition(event->position().toPoint()).position();
    auto isDelimiter = [](QChar c) {
        return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t');
    };
    if (pos >= plain.size() || (pos < plain.size() && isDelimiter(plain[pos])))
        if (pos > 0 && !isDelimiter(plain[pos - 1]))
            --pos;
    int start = pos, end = pos;
    while (start > 0 && !isDelimiter(plain[start - 1]))
        --start;
    while (end < plain.size() && !isDelimiter(plain[end]))
        ++end;
    QTextCursor c = textCursor();
    c.setPosition(start);
    c.setPosition(end, QTextCursor::KeepAnchor);
    setTextCursor(c);
    emit DblClick();
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
