#include "ktuipredefblockcombobox.h"

#include "ktpredefblocks_p.h"
#include "ktresourcetext.h"
#include "ktstringconversion.h"
#include "ktuiblocktable_p.h"

#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <ktutimagepath.h>

namespace {

struct PredefRow
{
    const wchar_t* key;
    const wchar_t* defaultText;
    int data;
};

// The texts of rows 1, 3 and 4 cross the block names on purpose (see the class).
const PredefRow kPredefRows[KtPredefBlocks::kCount] = {
    {L"IDS_PREDEF_BLOCKNAME_DETAILCALLOUT", L"详细信息标注", 0},
    {L"IDS_PREDEF_BLOCKNAME_TAGBOX", L"槽", 1},
    {L"IDS_PREDEF_BLOCKNAME_TAGCIRCLE", L"圆", 2},
    {L"IDS_PREDEF_BLOCKNAME_TAGHEXAGON", L"方框", 3},
    {L"IDS_PREDEF_BLOCKNAME_TAGSLOT", L"正六边形", 4},
    {L"IDS_PREDEF_BLOCKNAME_TAGTRANGLE", L"三角形", 5},
};

const int kTileSize = 17;

} // namespace

KtUiPredefBlockComboBox::KtUiPredefBlockComboBox(QWidget* parent)
    : QComboBox(parent)
{
    m_rows.fill(ArrowNameInfo());
    Initialize();
}

KtUiPredefBlockComboBox::~KtUiPredefBlockComboBox() = default;

void KtUiPredefBlockComboBox::Initialize()
{
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &KtUiPredefBlockComboBox::slot_currentPredefIndexChanged);

    for (int row = 0; row < KtPredefBlocks::kCount; ++row) {
        m_rows[row] = ArrowNameInfo{ktutResourceText(kPredefRows[row].key, kPredefRows[row].defaultText),
            ktutWideToQString(KtPredefBlocks::blockName(row)), kPredefRows[row].data};
    }

    QIcon icons[KtPredefBlocks::kCount];
    const QString path = ktutGetImageFullPath(QStringLiteral("common/predefblock.bmp"));
    if (QFile::exists(path)) {
        const QPixmap tiles(path);
        for (int row = 0; row < KtPredefBlocks::kCount; ++row) {
            icons[row].addPixmap(
                tiles.copy(0, kTileSize * m_rows[row].data, kTileSize, kTileSize), QIcon::Normal, QIcon::Off);
        }
    }

    for (int row = 0; row < KtPredefBlocks::kCount; ++row)
        insertItem(count(), icons[row], m_rows[row].name, QVariant(m_rows[row].data));
}

QString KtUiPredefBlockComboBox::getCurPredefBlockName()
{
    if (m_currentIndex < 0 || m_currentIndex >= int(m_rows.size()))
        return QString();
    return m_rows[m_currentIndex].blockName;
}

int KtUiPredefBlockComboBox::findItemByPredefBlockName(const QString& blockName) const
{
    if (blockName.isEmpty())
        return -1;
    const QString upper = blockName.toUpper();
    for (int row = 0; row < int(m_rows.size()); ++row) {
        if (m_rows[row].blockName.toUpper() == upper)
            return row;
    }
    return -1;
}

int KtUiPredefBlockComboBox::SelectString(int, QString blockName)
{
    const QString upper = blockName.toUpper();
    for (int row = 0; row < KtPredefBlocks::kCount; ++row) {
        // The stored names keep their case: no row matches an upper-cased name.
        if (m_rows[row].blockName == upper) {
            m_currentIndex = row;
            setCurrentIndex(row);
            return row;
        }
    }
    return -1;
}

KtDbObjectId KtUiPredefBlockComboBox::GetCurSelPredefHead()
{
    const int index = currentIndex();
    if (index > 6)
        return GetBlockTableRecordId(ktutQStringToKtString(currentText()).c_str());
    return GeneratePredefHeadBlock(index);
}

void KtUiPredefBlockComboBox::OnSelectOther()
{ }

int KtUiPredefBlockComboBox::currentPredefIndex() const
{
    return m_currentIndex;
}

KtDbObjectId KtUiPredefBlockComboBox::currentPredefId() const
{
    return m_currentId;
}

void KtUiPredefBlockComboBox::slot_currentPredefIndexChanged(int index)
{
    if (index >= KtPredefBlocks::kCount)
        return;
    m_currentIndex = index;
    m_currentId = GeneratePredefHeadBlock(index);
}

KtDbObjectId KtUiPredefBlockComboBox::GetBlockTableRecordId(const wchar_t* name)
{
    return KtUiBlockTable::recordId(name);
}

bool KtUiPredefBlockComboBox::AddRecordToBlockTable(KtDbBlockTableRecord* record, KtDbObjectId& id)
{
    return KtUiBlockTable::addRecord(record, id) == KtUiBlockTable::AddResult::Added;
}

KtDbObjectId KtUiPredefBlockComboBox::GeneratePredefHeadBlock(int index)
{
    return KtPredefBlocks::generate(index);
}
