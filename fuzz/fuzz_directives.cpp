// The directives of the ZelvaniPicker command, called with any argument lists: names,
// numbers and counts as a script may pass them. An input is a script of calls, one a line,
// the directive and its arguments separated by tabs; then what the calls queued runs on
// idle, and the tab is painted.
//
// Paths go to files of the run's folder only, by their file name: a picker, a damaged
// picker and a picture. An input makes at most 8 calls of 15 arguments, of which 2 open
// files or bind. `save` and `saveas` write files and ask for names, and take no arguments:
// they are left out. A background scaled larger than the target allows is skipped: the size
// dialog takes up to 20000 by 20000, a legitimate picture of gigabytes.
#include "picker_host.h"

#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QFileInfo>
#include <QImage>
#include <QList>
#include <cstdlib>

namespace {

// Enough for a script that builds and changes a few buttons; opening files and asking
// for namespaces cost most, and a few of each are enough.
constexpr int max_calls = 8;
constexpr int max_heavy_calls = 2;
constexpr int max_words = 16;
constexpr qint64 max_background_pixels = qint64(1) << 22;

void write_work_files() {
    QByteArray pkr;
    QDataStream out(&pkr, QIODevice::WriteOnly);
    out.setVersion(7);
    out << qint32(5) << QStringLiteral("Arm") << QString() << qint32(2);
    out << qint32(0) << QPoint(10, 10) << qint32(20) << qint32(20) << qint32(12) << qint32(0)
        << qint32(0) << qint32(0xff0000) << qint32(0) << QStringLiteral("L") << qint32(1)
        << QStringLiteral("hero:arm");
    out << qint32(1) << QPoint(40, 10) << qint32(20) << qint32(20) << qint32(12) << qint32(1)
        << qint32(0) << qint32(0x00ff00) << qint32(0) << QStringLiteral("Go") << qint32(1)
        << QStringLiteral("select hero:leg;");
    fuzz::write_work_file(QStringLiteral("a.pkr"), pkr);
    fuzz::write_work_file(QStringLiteral("b.pkr"), pkr.left(pkr.size() / 2));
    QImage image(16, 8, QImage::Format_ARGB32);
    image.fill(Qt::darkCyan);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    fuzz::write_work_file(QStringLiteral("c.png"), png);
}

// Arguments naming files go to the run's folder.
bool takes_paths(const QByteArray& directive) {
    return directive == "open" || directive == "set_background";
}

bool heavy(const QByteArray& directive) {
    return directive == "open" || directive == "bind" || directive == "rebind";
}

bool wanted(const QList<QByteArray>& words) {
    const QByteArray& directive = words.first();
    if (directive == "save" || directive == "saveas")
        return false;
    if (directive == "resize_background" && words.size() == 3) {
        // Read as the directive reads them.
        const qint64 w = int(std::strtol(words[1].constData(), nullptr, 10));
        const qint64 h = int(std::strtol(words[2].constData(), nullptr, 10));
        return w * h <= max_background_pixels;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::start(true);
    write_work_files();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray script(reinterpret_cast<const char*>(data), int(size));
    int calls = 0, heavy_calls = 0;
    bool batch = false;
    for (const QByteArray& line : script.split('\n')) {
        // The most any directive reads is 13 arguments; more only open more files.
        QList<QByteArray> words = line.split('\t').mid(0, max_words);
        // Each word ends at its first NUL, as the C string an MString is made from:
        // "save\0x" is `save`.
        for (QByteArray& word : words) {
            if (const int nul = word.indexOf('\0'); nul >= 0)
                word.truncate(nul);
        }
        if (words.first().isEmpty() || !wanted(words))
            continue;
        if (heavy(words.first()) && ++heavy_calls > max_heavy_calls)
            continue;
        if (takes_paths(words.first())) {
            for (int i = 1; i < words.size(); ++i)
                words[i] = QFile::encodeName(
                    fuzz::work_path(QFileInfo(QString::fromUtf8(words[i])).fileName()));
        }
        fuzz::picker_bytes(words);
        batch = batch || words.first() == "enable_batch_mode";
        if (++calls == max_calls)
            break;
    }
    if (batch)
        fuzz::picker({QStringLiteral("disable_batch_mode")});
    fuzz::paint_current_view();
    fuzz::run_idle_and_check();
    fuzz::reset(fuzz::what_changed::anything);
    return 0;
}
