#include "ktuiarrowcombobox.h"

#include "ktresourcetext.h"
#include "ktsignalblock_p.h"
#include "ktstringconversion.h"
#include "ktuiblocktable_p.h"

#include <QIcon>
#include <QPixmap>
#include <ktapdocmanager.h>
#include <ktdbdatabase.h>
#include <ktqtblocksignalutil.h>
#include <ktuidialogs.h>
#include <ktuipropertyobject.h>
#include <ktutimagepath.h>

#include <memory>

namespace {

struct StandardArrow
{
    const char* blockName; // upper-case key
    const wchar_t* key;
    const wchar_t* defaultText;
    const char* icon;
    int data;
};

// Rows 4 and 18 both carry 19.
const StandardArrow kStandardArrows[20] = {
    {"", L"IDS_ARROWNAME_CLOSEDFILLED", L"实心闭合", "Arrow/arrowsolidclosed.svg", 0},
    {"_CLOSEDBLANK", L"IDS_ARROWNAME_CLOSEDBLANK", L"空心闭合", "Arrow/arrowhollowclosed.svg", 15},
    {"_CLOSED", L"IDS_ARROWNAME_CLOSED", L"闭合", "Arrow/closed.svg", 9},
    {"_DOT", L"IDS_ARROWNAME_DOT", L"点", "Arrow/point.svg", 1},
    {"_ARCHTICK", L"IDS_ARROWNAME_ARCHTICK", L"建筑标记", "Arrow/building_mark.svg", 19},
    {"_OBLIQUE", L"IDS_ARROWNAME_OBLIQUE", L"倾斜", "Arrow/incline.svg", 12},
    {"_OPEN", L"IDS_ARROWNAME_OPEN", L"打开", "Arrow/open.svg", 6},
    {"_ORIGIN", L"IDS_KTUI_KTUICOMBOBOX_PROMPT10", L"指示原点", "Arrow/indicate_origin.svg", 4},
    {"_ORIGIN2", L"IDS_KTUI_KTUICOMBOBOX_PROMPT11", L"指示原点 2", "Arrow/indicate_origin2.svg", 5},
    {"_OPEN90", L"IDS_KTUI_KTUICOMBOBOX_PROMPT12", L"直角", "Arrow/rightangle.svg", 7},
    {"_OPEN30", L"IDS_KTUI_KTUICOMBOBOX_PROMPT13", L"30 度角", "Arrow/thirty_angle.svg", 8},
    {"_DOTSMALL", L"IDS_ARROWNAME_DOTSMALL", L"小点", "Arrow/small_point.svg", 2},
    {"_DOTBLANK", L"IDS_ARROWNAME_DOTBLANK", L"空心点", "Arrow/hollowpoint.svg", 3},
    {"_SMALL", L"IDS_KTUI_KTUICOMBOBOX_PROMPT16", L"空心小点", "Arrow/smallhollowpoint.svg", 10},
    {"_BOXBLANK", L"IDS_KTUI_KTUICOMBOBOX_PROMPT17", L"方框", "Arrow/box.svg", 14},
    {"_BOXFILLED", L"IDS_KTUI_KTUICOMBOBOX_PROMPT18", L"实心方框", "Arrow/solidbox.svg", 13},
    {"_DATUMBLANK", L"IDS_KTUI_KTUICOMBOBOX_PROMPT19", L"基准三角形", "Arrow/triangle.svg", 17},
    {"_DATUMFILLED", L"IDS_ARROWNAME_DATUMFILLED", L"实心基准三角形", "Arrow/solidtriangle.svg", 16},
    {"_INTEGRAL", L"IDS_ARROWNAME_INTEGRAL", L"积分", "Arrow/integration.svg", 19},
    {"_NONE", L"IDS_ARROWNAME_NONE", L"无", "Arrow/none.svg", 11},
};

const int kMaxChosenBlocks = 6;
const int kDialogKind = 49;

QString standardText(int row)
{
    return ktutResourceText(kStandardArrows[row].key, kStandardArrows[row].defaultText);
}

QString userArrowText()
{
    return ktutResourceText(L"IDS_ARROWNAME_USER", L"用户箭头...");
}

QIcon blankIcon()
{
    QPixmap pixmap(14, 14);
    pixmap.fill(QColor(0, 0, 0, 0));
    QIcon icon;
    icon.addPixmap(pixmap, QIcon::Normal, QIcon::Off);
    return icon;
}

bool startsWithSpaceName(const QString& name)
{
    if (name.size() <= 11)
        return false;
    const QStringRef head = name.leftRef(12);
    return head.compare(QLatin1String("*MODEL_SPACE"), Qt::CaseInsensitive) == 0
        || head.compare(QLatin1String("*PAPER_SPACE"), Qt::CaseInsensitive) == 0;
}

} // namespace

KtUiArrowComboBox::KtUiArrowComboBox(QWidget* parent)
    : QComboBox(parent)
{
    Initialize();
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &KtUiArrowComboBox::slot_currentArrowIndexChanged);
}

KtUiArrowComboBox::~KtUiArrowComboBox() = default;

void KtUiArrowComboBox::Initialize()
{
    clear();
    const QIcon blank = blankIcon();
    for (const ArrowNameInfo& chosen : qAsConst(m_chosen))
        insertItem(count(), blank, chosen.name, QVariant());
    if (!m_chosen.isEmpty())
        insertSeparator(m_chosen.size());

    for (int row = 0; row < 20; ++row) {
        const StandardArrow& arrow = kStandardArrows[row];
        m_standard[row] = ArrowNameInfo{standardText(row), QString::fromLatin1(arrow.blockName), arrow.data};
        QIcon icon;
        icon.addFile(
            ktutGetImageFullPath(QString::fromLatin1(arrow.icon)), QSize(), QIcon::Normal, QIcon::Off);
        insertItem(count(), icon, m_standard[row].name, QVariant(m_standard[row].data));
    }

    insertItem(count(), blank, userArrowText(), QVariant());
    setMaxVisibleItems(28);
}

QString KtUiArrowComboBox::getCurArrowBlockName()
{
    const QString text = currentText();
    for (const ArrowNameInfo& chosen : qAsConst(m_chosen)) {
        if (chosen.name == text)
            return text;
    }
    for (const ArrowNameInfo& standard : m_standard) {
        if (standard.name == text)
            return standard.blockName;
    }
    return QString();
}

KtDbObjectId KtUiArrowComboBox::GetCurSelArrowHead()
{
    const QString text = currentText();
    for (const ArrowNameInfo& chosen : qAsConst(m_chosen)) {
        if (chosen.name == text)
            return GetBlockTableRecordId(ktutQStringToKtString(text).c_str());
    }
    for (int row = 0; row < 20; ++row) {
        if (m_standard[row].name == text)
            return GenerateArrowHeadBlock(row);
    }
    return KtDbObjectId::kNull;
}

QString KtUiArrowComboBox::getArrowDescByBlockName(const QString& blockName)
{
    if (blockName.isEmpty())
        return standardText(0);
    const QString upper = blockName.toUpper();
    for (int row = 1; row < 20; ++row) {
        if (upper == QLatin1String(kStandardArrows[row].blockName))
            return standardText(row);
    }
    return QString();
}

int KtUiArrowComboBox::findItemByArrowBlockName(const QString& blockName)
{
    if (blockName.isEmpty())
        return -1;
    const QString upper = blockName.toUpper();
    // The row number is the item index, also below chosen drawing blocks.
    for (int row = 0; row < 20; ++row) {
        if (upper == m_standard[row].blockName.toUpper())
            return row;
    }
    for (int i = 0; i < m_chosen.size(); ++i) {
        if (upper == m_chosen.at(i).blockName)
            return i;
    }
    if (m_chosen.size() >= kMaxChosenBlocks)
        m_chosen.removeLast();
    m_chosen.prepend(ArrowNameInfo{blockName, upper, 0});
    Initialize();
    return m_chosen.size() - 1;
}

int KtUiArrowComboBox::SelectString(int, QString blockName)
{
    const int item = findItemByArrowBlockName(blockName);
    m_currentIndex = item == -1 ? 0 : item;
    setCurrentIndex(m_currentIndex);
    return m_currentIndex;
}

void KtUiArrowComboBox::addItemWithoutIcon(const QString& blockName)
{
    const KtBlockThenUnblock blocker(this);
    findItemByArrowBlockName(blockName);
    SelectString(0, blockName);
}

QVariantList KtUiArrowComboBox::getBlockArray()
{
    QVariantList blocks;
    KtDbDatabase* db = curDatabase();
    KtDbBlockTable* table = nullptr;
    if (!db || db->getSymbolTable(table, KtDb::kForRead) != Kt::eOk)
        return blocks;

    KtDbObjectIterator* rawIterator = nullptr;
    if (table->newIterator(rawIterator, true, true) == Kt::eOk) {
        const std::unique_ptr<KtDbObjectIterator> iterator(rawIterator);
        for (; !iterator->done(); iterator->step(true, true)) {
            KtDbObject* object = nullptr;
            if (iterator->getObject(object, KtDb::kForRead) != Kt::eOk)
                continue;
            if (const KtDbBlockTableRecord* record = KtDbBlockTableRecord::cast(object)) {
                const QString name = ktutKtStringToQString(record->name());
                if (!startsWithSpaceName(name) && !record->isFromExternalReference() && !record->isDependent()
                    && !record->isAnonymous()) {
                    blocks.append(QVariantMap{
                        {QStringLiteral("name"), name},
                        {QStringLiteral("blockId"), QVariant(qint64(record->objectId().handle()))},
                    });
                }
            }
            object->close();
        }
    }
    table->close();
    return blocks;
}

void KtUiArrowComboBox::OnSelectOther()
{ }

int KtUiArrowComboBox::currentArrowIndex() const
{
    return m_currentIndex;
}

KtDbObjectId KtUiArrowComboBox::currentArrowId() const
{
    return m_currentId;
}

QList<ArrowNameInfo> KtUiArrowComboBox::chosenBlocks() const
{
    return m_chosen;
}

void KtUiArrowComboBox::slot_currentArrowIndexChanged(int index)
{
    if (index < 0)
        return;
    ktuiSetFocus(ktuiViewWindow());

    if (index < 20) {
        // The item index is the standard row, as in findItemByArrowBlockName().
        m_currentIndex = index;
        m_currentId = GenerateArrowHeadBlock(index);
        Q_EMIT arrowItemChanged(currentIndex());
        return;
    }

    const QString text = itemText(index);
    if (text != userArrowText()) {
        m_currentIndex = index;
        m_currentId = GetBlockTableRecordId(ktutQStringToKtString(text).c_str());
        Q_EMIT arrowItemChanged(currentIndex());
        return;
    }

    {
        const KtQtBlockSignalUtil blocker(this);
        setCurrentIndex(m_currentIndex);
        KtUiPropertyObject properties;
        properties.set(QStringLiteral("blocks"), getBlockArray());
        properties.set(QStringLiteral("currArrow"), currentText());
        ktuiShowModelDialogEx(QStringLiteral(KT_UI_USER_ARROW_DIALOG), kDialogKind, properties, this);
        const QString selected = properties.get(QStringLiteral("selectedBlockName"), QString()).toString();
        if (!selected.isEmpty()) {
            const KtBlockThenUnblock unblockAfter(this);
            findItemByArrowBlockName(selected);
            SelectString(0, selected);
        }
    }
    Q_EMIT arrowItemChanged(currentIndex());
}

bool KtUiArrowComboBox::hasBlock(const wchar_t* name, KtDbDatabase* db)
{
    return KtUiBlockTable::hasBlock(name, db);
}

KtDbObjectId KtUiArrowComboBox::GetBlockTableRecordId(const wchar_t* name)
{
    return KtUiBlockTable::recordId(name);
}

bool KtUiArrowComboBox::AddRecordToBlockTable(KtDbBlockTableRecord* record, KtDbObjectId& id)
{
    return KtUiBlockTable::addRecord(record, id) == KtUiBlockTable::AddResult::Added;
}
