// Opening a PDF underlay from arbitrary bytes: the definition, its protocol
// extension, the page items and a small rendering of the first pages. The
// file lives in memory (memfd) and is reached by its /proc path, as a real
// path would be. Whatever the bytes, the result is a status or a document
// whose images describe their pixels consistently.
#include "fuzzcheck.h"

#include <KtDbPdfDefinition>
#include <QGuiApplication>

#include <sys/mman.h>
#include <unistd.h>

#include <string>

namespace {

void ensureApplication()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QGuiApplication(argc, argv);
    }();
    (void)app;
}

void checkImage(KtDbUnderlayImage* image)
{
    if (!image)
        return;
    const KtDbPixelFormat format = image->pixelFormat();
    FUZZ_CHECK(image->width() > 0 && image->height() > 0 && image->bits());
    FUZZ_CHECK(image->bytesPerLine() % 4 == 0);
    FUZZ_CHECK(qint64(image->bytesPerLine()) * 8 >= qint64(image->width()) * format.bitsPerPixel);
    image->release();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ensureApplication();
    const int fd = memfd_create("fuzz_pdfunderlay", 0);
    FUZZ_CHECK(fd >= 0);
    std::size_t written = 0;
    while (written < size) {
        const ssize_t n = write(fd, data + written, size - written);
        FUZZ_CHECK(n > 0);
        written += std::size_t(n);
    }
    const std::wstring path = L"/proc/self/fd/" + std::to_wstring(fd);

    {
        KtDbPdfDefinition definition;
        definition.setSourceFileName(path.c_str());
        definition.load(nullptr);
        auto* extension = KtDbUnderlayHostPE::cast(definition.queryX(KtDbUnderlayHostPE::desc()));
        FUZZ_CHECK(extension);
        KtDbUnderlayFile* file = nullptr;
        if (extension->getFile(&definition, file) == Kt::eOk) {
            FUZZ_CHECK(file && file->getItemCount() >= 0);
            file->setPreviewSize(QSize(48, 48));
            for (int i = 0; i < std::min(file->getItemCount(), 3); ++i) {
                KtDbUnderlayItem* item = nullptr;
                if (file->getItem(i, item) != Kt::eOk)
                    continue;
                FUZZ_CHECK(item);
                item->name();
                checkImage(item->image());
            }
            KtDbUnderlayItem* none = nullptr;
            FUZZ_CHECK(file->getItem(-1, none) != Kt::eOk && !none);
        }
    }
    close(fd);
    return 0;
}
