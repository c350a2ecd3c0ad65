#pragma once

// The fill, join and line-end combo boxes are one design; these checks run
// the same cases on each, given its table and its select and read calls.

#include "plotstyletestsupport.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>

template <class Combo>
struct StyleComboChecks
{
    QVector<int> values; // in row order
    QStringList defaultTexts;
    QStringList englishTexts;
    QString strip;
    std::function<void(Combo&, int)> select;
    std::function<int(Combo&, int)> read;
    QVector<QPair<int, int>> selections; // value -> current row, from row 2

    /// Every check; QCOMPARE returns from the one that fails, so a failure stops here.
    void run() const
    {
        for (void (StyleComboChecks::*check)() const :
            {&StyleComboChecks::rows, &StyleComboChecks::english, &StyleComboChecks::selectByValue,
                &StyleComboChecks::missingBitmap, &StyleComboChecks::initializeTwice}) {
            (this->*check)();
            if (QTest::currentTestFailed())
                return;
        }
    }

    void rows() const
    {
        Combo combo;
        QCOMPARE(combo.iconSize(), QSize(26, 13));
        QCOMPARE(combo.count(), values.size());
        QVERIFY(combo.itemIcon(0).isNull());
        for (int row = 0; row < values.size(); ++row) {
            QCOMPARE(read(combo, row), values[row]);
            QCOMPARE(combo.itemText(row), defaultTexts[row]);
            if (row > 0)
                QCOMPARE(iconImage(combo, row, QSize(26, 13)), stripTile(strip, row));
        }
        QCOMPARE(read(combo, values.size()), 0);
        QCOMPARE(read(combo, -1), 0);
        combo.setItemData(1, 42);
        QCOMPARE(read(combo, 1), 0);
    }

    void english() const
    {
        EnglishTexts language;
        QVERIFY(language.registered());
        Combo combo;
        for (int row = 0; row < values.size(); ++row)
            QCOMPARE(combo.itemText(row), englishTexts[row]);
    }

    void selectByValue() const
    {
        Combo combo;
        QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
        for (const auto& [value, row] : selections) {
            combo.QComboBox::setCurrentIndex(2);
            index.clear();
            select(combo, value);
            QVERIFY2(combo.currentIndex() == row, qPrintable(QString::number(value)));
            QCOMPARE(index.count(), 0);
        }
    }

    void missingBitmap() const
    {
        MissingImages missing;
        Combo combo;
        QCOMPARE(combo.count(), 1);
        QCOMPARE(read(combo, 0), values[0]);
        select(combo, values[0]);
        QCOMPARE(combo.currentIndex(), 0);
        // The scan goes over its fixed number of rows: the absent row 1 reads as
        // 0 and is taken, which leaves the one-row combo without a current row.
        select(combo, 0);
        QCOMPARE(combo.currentIndex(), -1);
        QCOMPARE(combo.count(), 1);
    }

    void initializeTwice() const
    {
        Combo combo;
        combo.Initialize();
        const int n = values.size();
        QCOMPARE(combo.count(), 2 * n);
        QCOMPARE(read(combo, n + 1), values[1]);
        select(combo, values[n - 1]);
        QCOMPARE(combo.currentIndex(), n - 1);
    }
};
