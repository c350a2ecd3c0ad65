#include "ktutimagepath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>

#include <atomic>

namespace {

const QString& embeddedRoot()
{
    static const QString root = QStringLiteral(":/kthost/images/");
    return root;
}

QMutex g_dirMutex;
QString g_imageDir;
std::atomic<bool> g_embeddedImages{true};

// Normalises an image name to a relative path inside the image tree, or gives
// an empty string for names that are empty, absolute or climb out with "..".
QString relativeImageName(const QString& name)
{
    QString cleaned = name;
    cleaned.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (cleaned.isEmpty() || cleaned.startsWith(QLatin1Char('/')) || cleaned.startsWith(QLatin1Char(':')))
        return {};
    cleaned = QDir::cleanPath(cleaned);
    if (cleaned == QLatin1String(".") || cleaned == QLatin1String("..")
        || cleaned.startsWith(QLatin1String("../")))
        return {};
    return cleaned;
}

QString inDirectory(const QString& dir, const QString& relative)
{
    if (dir.isEmpty())
        return {};
    const QString path = QDir(dir).filePath(relative);
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

QString ktutGetImageFullPath(const QString& name, bool allowOverride)
{
    const QString relative = relativeImageName(name);
    if (relative.isEmpty())
        return embeddedRoot() + QStringLiteral("<invalid>");

    if (allowOverride) {
        QString path = inDirectory(ktutImageDirectory(), relative);
        if (path.isEmpty())
            path = inDirectory(QString::fromLocal8Bit(qgetenv("KT_IMAGE_DIR")), relative);
        if (!path.isEmpty())
            return path;
    }
    if (!g_embeddedImages.load())
        return embeddedRoot() + QStringLiteral("<missing>");
    // A directory of the image tree is no image: callers test with QFile::exists.
    const QString embedded = embeddedRoot() + relative;
    return QFileInfo(embedded).isDir() ? embeddedRoot() + QStringLiteral("<invalid>") : embedded;
}

void ktutSetImageDirectory(const QString& dir)
{
    QMutexLocker lock(&g_dirMutex);
    g_imageDir = dir;
}

QString ktutImageDirectory()
{
    QMutexLocker lock(&g_dirMutex);
    return g_imageDir;
}

void ktutSetEmbeddedImagesEnabled(bool enabled)
{
    g_embeddedImages.store(enabled);
}

bool ktutEmbeddedImagesEnabled()
{
    return g_embeddedImages.load();
}
