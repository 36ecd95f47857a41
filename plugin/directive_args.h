#pragma once
// Reading directive arguments: text as it stands, numbers as the host reads them.
#include <QString>
#include <QStringList>
#include <maya/MQtUtil.h>
#include <maya/MStringArray.h>

inline QString arg_text(const MStringArray& args, unsigned int index) {
    return MQtUtil::toQString(args[index]);
}

inline QStringList arg_list(const MStringArray& args) {
    QStringList list;
    for (unsigned int i = 0; i < args.length(); ++i)
        list.append(arg_text(args, i));
    return list;
}

// Exactly one argument, and not empty.
inline bool one_text_argument(const MStringArray& args) {
    return args.length() == 1 && args[0].length() > 0;
}
