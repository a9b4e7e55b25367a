#pragma once

// Thin wrappers that give Qt widgets the control semantics the windows rely on, so each rule is
// written once: a list box whose selection change by code raises Click, 16-bit indexes, text
// boxes whose text and selection count CR LF as two characters, a toolbar addressed by key, a
// four-panel status bar and a timer whose enabling restarts its interval.

#include "platform/TextBox.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QStatusBar>
#include <QStringList>
#include <QTimer>
#include <QToolBar>

#include <cstdint>
#include <functional>
#include <map>

namespace tolvisk {

class StringListModel;

// An unsorted list box. Indexes are 16-bit; -1 is no selection. Every change of the selection,
// by mouse, keyboard or program, raises Click once, after the change; assigning ListIndex raises
// it even when the entry was selected already. The user can move the selection, not remove it.
class ListBox : public QListView {
    Q_OBJECT
public:
    explicit ListBox(QWidget* parent = nullptr);

    int16_t ListIndex() const;
    // Selects the entry (or none for -1) and raises Click, whoever assigns it.
    void setListIndex(int16_t index);
    int16_t ListCount() const;
    QString List(int16_t index) const;
    void setList(int16_t index, const QString& text);
    void AddItem(const QString& text);
    // Inserts before `index`.
    void AddItem(const QString& text, int16_t index);
    // Removing the selected entry leaves no entry selected.
    void RemoveItem(int16_t index);
    void Clear();
    // Replaces all entries at once (fast path for long lists); no selection afterwards.
    void setItems(QStringList items);
    // Replaces all entries by `count` entries that `entry` makes when they are shown or read,
    // for a long list whose texts live elsewhere; no selection afterwards.
    void setItems(int count, std::function<QString(int row)> entry);
    QStringList items() const;

signals:
    void Click();
    // A double click anywhere in the list, also where there is no entry.
    void DblClick();

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // Ends a replacement of all entries: no selection, and no Click for it.
    void clearSelectionQuietly();
    StringListModel* model_;
    bool settingIndex_ = false;
};

// A toolbar whose buttons are found by key. Separators and placeholders have no key.
class ToolBar : public QToolBar {
    Q_OBJECT
public:
    explicit ToolBar(QWidget* parent = nullptr);

    QAction* addButton(const QString& key, const QString& toolTip, const QIcon& icon,
                       bool toggle = false);
    void addSeparatorButton();
    void addPlaceholder(int widthPixels);
    QAction* button(const QString& key) const;
    // Position 1 to count, separators and placeholders included.
    QString keyAt(int position) const;
    int buttonCount() const;
    // Pressed state of a toggle button.
    void setPressed(const QString& key, bool pressed);
    bool pressed(const QString& key) const;

signals:
    void ButtonClick(const QString& key);

private:
    std::map<QString, QAction*> buttons_;
    QStringList keys_;
};

// A status bar with text panels 1 and 2 and date and time panels 3 and 4, which it keeps
// current itself.
class PanelStatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit PanelStatusBar(QWidget* parent = nullptr);

    QString panelText(int panel) const;
    void setPanelText(int panel, const QString& text);

private:
    void updateClock();
    QLabel* panels_[4];
    QTimer clock_;
};

// A timer whose interval is in milliseconds; enabling it (again) restarts the interval.
class Timer : public QObject {
    Q_OBJECT
public:
    explicit Timer(QObject* parent = nullptr);
    bool Enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    int Interval() const { return timer_.interval(); }
    void setInterval(int ms);

signals:
    void Tick();

private:
    QTimer timer_;
    bool enabled_ = false;
};

} // namespace tolvisk
