// The Maya ASCII reader on any text, in every codeset it knows (the text's own
// "//Codeset:" line chooses), with file references resolved against a few small scenes in
// the run's folder. Whatever it read must write out and read back to the same nodes,
// namespaces and fileInfo entries (but those the writer fills in as Maya does).
#include "picker_host.h"

#include "core/scene.h"
#include "ma/ma_file.h"

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

namespace {

// Referenced scenes: one plain, one that references the first in turn, one that refers
// to itself.
void write_referenced_scenes() {
    fuzz::write_work_file(QStringLiteral("ref.ma"), "//Maya ASCII 2019 scene\n"
                                                    "createNode transform -n \"ctrl\";\n"
                                                    "createNode joint -n \"jnt\" -p \"ctrl\";\n"
                                                    "fileInfo \"k\" \"v\";\n");
    fuzz::write_work_file(QStringLiteral("nested.ma"),
                          "//Maya ASCII 2019 scene\n"
                          "file -rdi 1 -ns \"inner\" -rfn \"innerRN\" \"ref.ma\";\n"
                          "file -r -ns \"inner\" -dr 1 -rfn \"innerRN\" \"ref.ma\";\n"
                          "createNode transform -n \"top\";\n");
    fuzz::write_work_file(QStringLiteral("self.ma"),
                          "//Maya ASCII 2019 scene\n"
                          "file -r -ns \"again\" -rfn \"againRN\" \"self.ma\";\n");
}

// Namespaces and nodes, in no particular order: the writer puts parents first.
QStringList contents(const host::scene& s) {
    QStringList out = s.all_namespaces();
    for (int id : s.live_nodes())
        out << s.full_path(id) + QLatin1Char(' ') + s.at(id).type;
    out.sort();
    return out;
}

bool same_scene(const host::scene& read, const host::scene& reread) {
    // Entries Maya rewrites with its own values on every save.
    static const QStringList rewritten{QStringLiteral("application"), QStringLiteral("product"),
                                       QStringLiteral("version"), QStringLiteral("cutIdentifier"),
                                       QStringLiteral("osv")};
    if (contents(read) != contents(reread))
        return false;
    for (const auto& kv : read.file_infos()) {
        if (rewritten.contains(kv.first))
            continue;
        if (!reread.has_file_info(kv.first) || reread.file_info(kv.first) != kv.second)
            return false;
    }
    return true;
}

QString describe(const host::scene& s) {
    QStringList out = contents(s);
    for (const auto& kv : s.file_infos())
        out << kv.first + QLatin1Char('=') + kv.second;
    return out.join(QLatin1Char('\n'));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::start(false);
    write_referenced_scenes();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray text(reinterpret_cast<const char*>(data), int(size));
    host::ma::read_options options;
    options.file_path = fuzz::work_path(QStringLiteral("scene.ma"));
    host::scene first;
    host::ma::read_report report;
    QString error;
    if (!host::ma::read(text, first, report, &error, options))
        return 0;
    // What the host writes, it reads back as it was.
    host::scene second;
    host::ma::read_report again;
    options.load_references = false;
    const QByteArray written = host::ma::write(first, options.file_path);
    if (!host::ma::read(written, second, again, &error, options) || !same_scene(first, second)) {
        std::fprintf(stderr, "round trip differs (%s):\n%s\n---\n%s\n--- written:\n%s\n",
                     qPrintable(error), qPrintable(describe(first)), qPrintable(describe(second)),
                     written.left(4000).constData());
        std::abort();
    }
    return 0;
}
