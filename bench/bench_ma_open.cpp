// Opening a large rig scene: ma::read of a generated ~50 MB Maya ASCII text with 200,000
// namespaced nodes, beside one memchr pass over the same bytes, at full and half size.
#include "bench_timing.h"
#include "core/scene.h"
#include "ma/ma_file.h"
#include "ma/ma_lexer.h"

#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int nodes_per_character = 2000;

void append_number(QByteArray& out, double v) {
    out += QByteArray::number(v, 'g', 17);
}

// One character rig in namespace `ns`: a tree of controls with curve shapes, offset groups
// that share their short name (so children need absolute -p paths), and attribute data.
int append_character(QByteArray& out, const QByteArray& ns, int nodes, unsigned& seed) {
    auto rnd = [&seed] {
        seed = seed * 1664525u + 1013904223u;
        return double(seed >> 8) / double(1u << 24) * 200.0 - 100.0;
    };
    std::vector<QByteArray> paths;
    out += "createNode transform -n \"" + ns + ":root\";\n";
    out += "\trename -uid \"7C76EECB-4FDB-3DDF-2E63-F99C2086C373\";\n";
    int made = 1;
    paths.push_back("|" + ns + ":root");
    for (int k = 0; made < nodes; ++k) {
        const QByteArray name = ns + ":ctrl_" + QByteArray::number(k);
        const QByteArray parent =
            k == 0 ? ns + ":root" : ns + ":ctrl_" + QByteArray::number((k - 1) / 4);
        const QByteArray parent_path = paths[size_t(k == 0 ? 0 : (k - 1) / 4 + 1)];
        out += "createNode " + QByteArray(k % 2 ? "joint" : "transform") + " -n \"" + name +
               "\" -p \"" + parent + "\";\n";
        out += "\trename -uid \"4A0ED900-0000-438E-5D3D-B4240000035A\";\n";
        out += "\tsetAttr \".t\" -type \"double3\" ";
        append_number(out, rnd());
        out += ' ';
        append_number(out, rnd());
        out += ' ';
        append_number(out, rnd());
        out += " ;\n\tsetAttr -k on \".nds\";\n";
        paths.push_back(parent_path + "|" + name);
        ++made;
        if (k % 8 == 0 && made < nodes) {
            out += "createNode nurbsCurve -n \"" + name + "Shape\" -p \"" + name + "\";\n";
            out += "\tsetAttr -k off \".v\";\n\tsetAttr \".cc\" -type \"nurbsCurve\" \n\t\t3 8 2 "
                   "no 3\n"
                   "\t\t13 -2 -1 0 1 2 3 4 5 6 7 8 9 10\n\t\t11\n";
            for (int p = 0; p < 11; ++p) {
                out += "\t\t";
                append_number(out, rnd());
                out += ' ';
                append_number(out, rnd());
                out += ' ';
                append_number(out, rnd());
                out += '\n';
            }
            out += "\t\t;\n";
            ++made;
        }
        if (k % 10 == 0 && made + 1 < nodes) {
            out += "createNode transform -n \"" + ns + ":offset\" -p \"" + name + "\";\n";
            out += "\tsetAttr \".s\" -type \"double3\" 1 1 1 ;\n";
            out += "createNode locator -n \"" + name + "Loc\" -p \"" + paths.back() + "|" + ns +
                   ":offset\";\n";
            out += "\tsetAttr -k off \".v\";\n";
            made += 2;
        }
    }
    return made;
}

QByteArray generate(int nodes) {
    QByteArray out;
    out.reserve(nodes * 260);
    out += "//Maya ASCII 2019 scene\n//Name: bench.ma\n//Last modified: Mon, Jan 06, 2020 "
           "10:00:00 AM\n//Codeset: UTF-8\n";
    out += "requires maya \"2019\";\nrequires -nodeType \"mmMarkerScale\" -nodeType "
           "\"mmMarkerGroupTransform\"\n\t\t \"mmSolver\" \"0.3.0\";\n";
    out += "currentUnit -l centimeter -a degree -t film;\n";
    out += "fileInfo \"application\" \"maya\";\nfileInfo \"osv\" \"Linux 5.10 x86_64\\n\";\n";
    QByteArray blob;
    for (int i = 0; i < 20000; ++i)
        blob += "QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo0NTY3ODk=";
    out += "fileInfo \"ZelvaniPickerData\" \"" + blob + "\";\n";
    unsigned seed = 12345;
    int made = 0;
    for (int c = 0; made < nodes; ++c) {
        const QByteArray ns = "char" + QByteArray::number(c) + (c % 4 == 3 ? ":face" : "");
        made += append_character(out, ns, std::min(nodes_per_character, nodes - made), seed);
    }
    out += "select -ne :time1;\n\tsetAttr \".o\" 1;\n// End of bench.ma\n";
    return out;
}

size_t count_semicolons(const QByteArray& text) {
    size_t count = 0;
    const char* p = text.constData();
    const char* end = p + text.size();
    while (const void* hit = std::memchr(p, ';', size_t(end - p))) {
        ++count;
        p = static_cast<const char*>(hit) + 1;
    }
    return count;
}

struct timings {
    double read_ms;
    double lex_ms;
};

timings run(int nodes) {
    const QByteArray text = generate(nodes);
    // Scenes are destroyed outside the timing: tearing down is not reading.
    std::vector<std::unique_ptr<host::scene>> scenes;
    const double read_ms = best_ms_n(3, [&] {
        scenes.push_back(std::make_unique<host::scene>());
        QStringList warnings;
        QString error;
        host::ma::read(text, *scenes.back(), &warnings, &error);
    });
    const int read_nodes = scenes.back()->node_count();
    scenes.clear();
    size_t statements = 0;
    const double lex_ms = best_ms_n(3, [&] {
        host::ma::statement_lexer lexer(text.constData(), text.constData() + text.size());
        host::ma::statement s;
        statements = 0;
        while (lexer.next(s))
            ++statements;
    });
    size_t semicolons = 0;
    const double bound_ms = best_ms_n(5, [&] { semicolons = count_semicolons(text); });
    std::printf("%7.1f MB %7d nodes | ma::read %8.1f ms (%6.0f MB/s) | statements only %7.1f ms"
                " | memchr ';' bound %6.2f ms | read/bound %6.1fx\n",
                text.size() / 1e6, read_nodes, read_ms, text.size() / 1e3 / read_ms, lex_ms,
                bound_ms, read_ms / bound_ms);
    if (read_nodes != nodes || statements < semicolons / 2)
        std::printf("  unexpected: %d nodes read, %zu statements, %zu semicolons\n", read_nodes,
                    statements, semicolons);
    return {read_ms, lex_ms};
}

} // namespace

int main() {
    run(20000); // warms up the allocator and the caches, so both sizes start alike
    const timings full = run(200000);
    const timings half = run(100000);
    // The scene's hash tables outgrow the caches, so node building scales a little above 2.
    std::printf("full/half time: ma::read %.2f, statements only %.2f (2.00 is linear)\n",
                full.read_ms / half.read_ms, full.lex_ms / half.lex_ms);
    return 0;
}
