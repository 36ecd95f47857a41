// The MEL tokenizer and parser on any text: a syntax error is an answer, never a crash.
#include "mel/error.h"
#include "mel/parser.h"

#include <QString>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    try {
        host::mel::parse(QString::fromUtf8(reinterpret_cast<const char*>(data), int(size)));
    } catch (const host::mel::mel_error&) {
    }
    return 0;
}
