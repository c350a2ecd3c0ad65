#pragma once

// The tree and list controls share their image-list calls; this check runs
// them on either control, given a way to insert an item with an image index.

#include <CKtImageList>
#include <QtTest>

#include <functional>

inline QPixmap solid(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

inline QColor iconColor(const QIcon& icon, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(16, 16, mode, QIcon::Off).toImage().pixelColor(8, 8);
}

/// Reads the icon of an item inserted earlier, as it is now.
using IconOf = std::function<QIcon()>;

/// @p insert adds an item showing image @p image (both images, for the tree).
template <class Control>
void checkImageList(Control& control, const std::function<IconOf(int image)>& insert)
{
    QVERIFY(control.SetImageList(CKtImageList{solid(Qt::red)}, 0).isEmpty());
    const IconOf red = insert(0);
    QCOMPARE(control.SetImageList(CKtImageList{solid(Qt::blue), solid(Qt::red)}, 0).size(), 1);
    control.AppendItemImage(solid(Qt::green));
    QCOMPARE(control.GetImageList(7).size(), 3); // the argument is ignored
    QCOMPARE(iconColor(insert(2)()), QColor(Qt::green));
    for (int outside : {3, -1})
        QVERIFY(insert(outside)().isNull());

    const int capacity = control.GetImageList(0).capacity();
    control.ClearItemImageList();
    QVERIFY(control.GetImageList(0).isEmpty());
    QCOMPARE(control.GetImageList(0).capacity(), capacity); // the storage is kept
    // Icons are made at insertion: later list changes leave them alone.
    QCOMPARE(iconColor(red()), QColor(Qt::red));
    QVERIFY(insert(0)().isNull());
}
