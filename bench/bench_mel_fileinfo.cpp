// The picker hands its whole scene data to MEL as one string literal: running
// `fileInfo "k" "<base64>";` must cost about one pass over the text.
#include "bench_timing.h"
#include "core/session.h"

#include <cstdio>

namespace {

QString statement_of(int megabytes) {
    QByteArray payload(megabytes * 1024 * 1024, 'A');
    for (int i = 0; i < payload.size(); i += 61)
        payload[i] = "0123456789+/abcdefghij"[i % 22];
    return QStringLiteral("fileInfo \"ZelvaniPickerData\" \"") + QString::fromLatin1(payload) +
           QStringLiteral("\"; file -modified 1;");
}

} // namespace

int main() {
    host::session& host = host::session::get();
    std::printf("MEL string literal through the interpreter (best of 5)\n");
    for (int mb : {1, 5, 10}) {
        const QString text = statement_of(mb);
        const double mel = best_ms([&] { host.execute(text); });
        // Lower bound: one pass over the same characters to the closing quote.
        volatile int sink = 0;
        const double bound = best_ms([&] { sink = sink + text.indexOf(QLatin1Char('"'), 32); });
        std::printf("%3d MB  interpreter %8.2f ms  one-pass bound %7.2f ms  ratio %6.1fx\n", mb,
                    mel, bound, mel / bound);
        if (host.scene.file_info("ZelvaniPickerData").size() != mb * 1024 * 1024)
            return 1;
    }
    return 0;
}
