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

    /// Every check, up to the first that fails.
    void run() const
    {
        const int n = values.size();
        {
            // Row r > 0 shows tile r of the strip; data that is no record reads as 0.
            Combo combo;
            QCOMPARE(combo.count(), n);
            QVERIFY(combo.itemIcon(0).isNull());
            const QImage tiles = QImage(":/kthost/images/" + strip).convertToFormat(QImage::Format_ARGB32);
            for (int row = 0; row < n; ++row) {
                QCOMPARE(read(combo, row), values[row]);
                QCOMPARE(combo.itemText(row), defaultTexts[row]);
                if (row > 0)
                    QCOMPARE(iconImage(combo, row, QSize(26, 13)), tiles.copy(0, 13 * row, 26, 13));
            }
            QCOMPARE(read(combo, n), 0);
            combo.setItemData(1, 42);
            QCOMPARE(read(combo, 1), 0);
        }
        {
            EnglishTexts language;
            QVERIFY(language.registered);
            Combo combo;
            for (int row = 0; row < n; ++row)
                QCOMPARE(combo.itemText(row), englishTexts[row]);
        }
        {
            // Selection by value is silent.
            Combo combo;
            QSignalSpy index(&combo, QOverload<int>::of(&QComboBox::currentIndexChanged));
            for (const auto& [value, row] : selections) {
                combo.QComboBox::setCurrentIndex(2);
                index.clear();
                select(combo, value);
                QVERIFY2(combo.currentIndex() == row && index.isEmpty(), qPrintable(QString::number(value)));
            }
        }
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
        }
        // A second Initialize appends a second set; selection finds the first.
        Combo combo;
        combo.Initialize();
        QCOMPARE(combo.count(), 2 * n);
        QCOMPARE(read(combo, n + 1), values[1]);
        select(combo, values[n - 1]);
        QCOMPARE(combo.currentIndex(), n - 1);
    }
};
