// The search over the store that the Find window walks.

#include "find/StoreSearch.h"
#include "platform/Controls.h"
#include "store/Module1.h"

#include <QTest>

using namespace tolvisk;

class TestFind : public QObject {
    Q_OBJECT
private slots:
    void storeSearch_data();
    void storeSearch();
};

void TestFind::storeSearch_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("found");
    QTest::newRow("in a list entry, any case") << "KASPAROV" << 0 << 3 << 1 << 1;
    QTest::newRow("in the moves only") << "Qxh7" << 0 << 3 << 1 << 2;
    QTest::newRow("from a later entry") << "[Event" << 2 << 3 << 1 << 3;
    QTest::newRow("backwards") << "[Event" << 3 << 0 << -1 << 3;
    QTest::newRow("backwards from the middle") << "e4" << 1 << 0 << -1 << 0;
    QTest::newRow("nowhere") << "Tal" << 0 << 3 << 1 << -1;
    QTest::newRow("a range past the list") << "Carlsen" << 0 << 40 << 1 << -1;
    QTest::newRow("an empty text matches the first") << "" << 1 << 3 << 1 << 1;
    QTest::newRow("no step") << "e4" << 0 << 3 << 0 << -1;
}

void TestFind::storeSearch() {
    QFETCH(QString, text);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, step);
    QFETCH(int, found);
    Module1 m;
    m.clearStore();
    const char* games[][2] = {{"[White \"Anand\"]", "1. e4 e5 *"},
                              {"[White \"Kasparov\"]", "1. d4 d5 *"},
                              {"??? No Tags Found ???", "1. e4 e6 2. Qxh7 *"},
                              {"[Event \"Open\"]", "1. c4 *"}};
    ListBox list;
    for (const auto& [entry, moves] : games) {
        m.GameStore.push_back({QString::fromLatin1(entry), QString::fromLatin1(moves), false});
        list.AddItem(QString::fromLatin1(entry));
    }
    QCOMPARE(findInStore(m, list, text, first, last, step), found);
    QCOMPARE(list.ListIndex(), int16_t(-1)); // the search selects nothing
}

QTEST_MAIN(TestFind)
#include "tst_find.moc"
