#pragma once
// The MEL the picker hands to the host on its own, told apart from anything else: for
// tests and fuzz targets that check that data never becomes code.
#include "mel/ast.h"
#include "mel/error.h"
#include "mel/parser.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

// What a line of MEL is, if it is the picker's own: a fixed text, or a fixed text around
// data that cannot leave its place (Base64, decimal keys).
inline bool own_fixed_line(const QString& text) {
    static const QRegularExpression own(QRegularExpression::anchoredPattern(QStringLiteral(
        R"(fileInfo "ZelvaniPickerData" "[A-Za-z0-9+/=]*"; file -modified 1;)"
        R"(|fileInfo "ZelvaniPickerImage_[0-9]+" "[A-Za-z0-9+/=]*"; file -modified 1;)"
        R"(|fileInfo -remove "ZelvaniPickerImage_[0-9]+"; file -modified 1;)"
        R"(|ZelvaniPicker fetch_image `fileInfo -q "ZelvaniPickerImage_[0-9]+"`;)"
        R"(|ZelvaniPicker "(re)?bind" `picker_ListNamespaces`;)"
        R"(|ZelvaniPicker restore `fileInfo -q "ZelvaniPickerData"`;)"
        R"(|ZelvaniPicker clear)")));
    return own.match(text).hasMatch();
}

// The words of a "ZelvaniPicker select" line as MEL reads them, when each is plain data.
inline bool select_arguments(const QString& text, QStringList* words) {
    try {
        const auto program = host::mel::parse(text);
        if (program.size() != 1 || program[0]->what != host::mel::stmt::kind::expression)
            return false;
        const host::mel::expr& call = *program[0]->e;
        if (call.what != host::mel::expr::kind::call || call.name != "ZelvaniPicker")
            return false;
        for (const auto& arg : call.args) {
            if (arg->what != host::mel::expr::kind::literal ||
                arg->literal.kind != host::mel::type::string)
                return false;
            *words << arg->literal.s;
        }
        return !words->isEmpty() && words->takeFirst() == "select";
    } catch (const host::mel::mel_error&) {
        return false;
    }
}
