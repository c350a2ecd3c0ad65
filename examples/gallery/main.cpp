// The gallery of libKtCmdQtUtils widgets on the stand-in host.
//   ktgallery                               opens the window
//   ktgallery --page NAME                   opens it on one page (tree, list, ...)
//   ktgallery --page NAME --screenshot F    renders that page to a PNG file and exits
//   ktgallery --screenshot DIR              renders every page to DIR/NAME.png and exits
//   ktgallery --language en                 starts with the English catalogue (see the Language menu)

#include "gallerywindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>

namespace {

// Takes the screenshots of @p pages (one after the other, each once its page is
// idle or after a generous wait) into @p paths, then quits.
void screenshotWhenReady(GalleryWindow* window, QStringList pages, QStringList paths, QElapsedTimer clock)
{
    constexpr qint64 maxWaitMs = 60000;
    if (window->isCurrentPageBusy() && clock.elapsed() < maxWaitMs) {
        QTimer::singleShot(100, window, [=] { screenshotWhenReady(window, pages, paths, clock); });
        return;
    }
    const QString path = paths.takeFirst();
    const bool ok = window->saveScreenshot(path);
    std::fprintf(ok ? stdout : stderr, "%s %s\n", ok ? "wrote" : "could not write", qPrintable(path));
    pages.removeFirst();
    if (!ok || pages.isEmpty()) {
        QApplication::exit(ok ? 0 : 1);
        return;
    }
    window->showPage(pages.first());
    clock.restart();
    QTimer::singleShot(300, window, [=] { screenshotWhenReady(window, pages, paths, clock); });
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ktgallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Gallery of the libKtCmdQtUtils widgets"));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Render the page to a PNG <file>, or, without --page, every page into the directory "
                       "<file> as NAME.png, and exit."),
        QStringLiteral("file"));
    const QCommandLineOption page(
        QStringLiteral("page"), QStringLiteral("Open the gallery on page <name>."), QStringLiteral("name"));
    const QCommandLineOption language(QStringLiteral("language"),
        QStringLiteral("Register the built-in catalogue <lang> (\"en\")."), QStringLiteral("lang"));
    parser.addOption(screenshot);
    parser.addOption(page);
    parser.addOption(language);
    parser.process(app);

    GalleryWindow window;
    // Without a language service the widgets show their built-in texts.
    if (parser.isSet(language) && !window.setLanguage(parser.value(language))) {
        std::fprintf(stderr, "no built-in catalogue \"%s\"\n", qPrintable(parser.value(language)));
        return 2;
    }
    if (parser.isSet(page) && !window.showPage(parser.value(page))) {
        std::fprintf(stderr, "no page \"%s\"; pages: %s\n", qPrintable(parser.value(page)),
            qPrintable(window.pageNames().join(QStringLiteral(", "))));
        return 2;
    }
    window.show();

    if (parser.isSet(screenshot)) {
        QStringList pages;
        QStringList paths;
        if (parser.isSet(page)) {
            pages << parser.value(page);
            paths << parser.value(screenshot);
        } else {
            const QDir dir(parser.value(screenshot));
            if (!dir.mkpath(QStringLiteral("."))) {
                std::fprintf(stderr, "cannot make the directory %s\n", qPrintable(dir.path()));
                return 1;
            }
            pages = window.pageNames();
            for (const QString& name : qAsConst(pages))
                paths << dir.filePath(name + QStringLiteral(".png"));
            window.showPage(pages.first());
        }
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(300, &window, [=, &window] { screenshotWhenReady(&window, pages, paths, clock); });
    }
    return app.exec();
}
