// Values between MEL and Python: what a command is given and what it gives back.
#include "embedding.h"

#include "mel/value.h"

#include <climits>

namespace host::python {

namespace {

using mel::type;
using mel::value;

// A scalar argument; false without an error set when `o` is no scalar.
bool scalar_of(PyObject* o, value& out) {
    if (PyBool_Check(o)) {
        out = value::of_int(o == Py_True ? 1 : 0);
        return true;
    }
    if (PyLong_Check(o)) {
        int overflow = 0;
        const long long v = PyLong_AsLongLongAndOverflow(o, &overflow);
        if (overflow || v < INT_MIN || v > INT_MAX) {
            PyErr_SetString(PyExc_OverflowError, "int too large for a command argument");
            return false;
        }
        out = value::of_int(int(v));
        return true;
    }
    if (PyFloat_Check(o)) {
        out = value::of_float(PyFloat_AS_DOUBLE(o));
        return true;
    }
    if (PyUnicode_Check(o)) {
        const QString text = text_of(o);
        if (PyErr_Occurred())
            return false;
        out = value::of_string(text);
        return true;
    }
    return false;
}

void refuse(PyObject* o) {
    if (!PyErr_Occurred())
        PyErr_Format(PyExc_TypeError, "invalid command argument of type '%s'", Py_TYPE(o)->tp_name);
}

// A list or tuple becomes one array: of strings if it holds any string, else of floats if
// it holds any float, else of ints.
bool array_of(PyObject* sequence, value& out) {
    const Py_ssize_t n = PySequence_Fast_GET_SIZE(sequence);
    PyObject** items = PySequence_Fast_ITEMS(sequence);
    QVector<value> elements;
    elements.reserve(int(n));
    bool any_string = false, any_float = false;
    for (Py_ssize_t k = 0; k < n; ++k) {
        value element;
        if (!scalar_of(items[k], element)) {
            refuse(items[k]);
            return false;
        }
        any_string = any_string || element.kind == type::string;
        any_float = any_float || element.kind == type::float_;
        elements.append(element);
    }
    const type scalar = any_string || n == 0 ? type::string : any_float ? type::float_ : type::int_;
    out = value::empty_of(mel::array_of(scalar));
    for (int k = 0; k < elements.size(); ++k)
        mel::set_element(out, k, elements[k]);
    return true;
}

PyObject* floats_of(const QVector<double>& values) {
    owned list(PyList_New(values.size()));
    if (!list)
        return nullptr;
    for (int k = 0; k < values.size(); ++k) {
        PyObject* item = PyFloat_FromDouble(values[k]);
        if (!item)
            return nullptr;
        PyList_SET_ITEM(list.get(), k, item);
    }
    return list.release();
}

PyObject* list_of(const value& v) {
    const int n = v.array_size();
    owned list(PyList_New(n));
    if (!list)
        return nullptr;
    for (int k = 0; k < n; ++k) {
        PyObject* item = to_python(mel::element_at(v, k));
        if (!item)
            return nullptr;
        PyList_SET_ITEM(list.get(), k, item);
    }
    return list.release();
}

} // namespace

QString text_of(PyObject* str) {
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_AsUTF8AndSize(str, &size);
    return utf8 ? QString::fromUtf8(utf8, int(size)) : QString();
}

PyObject* to_python(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return PyUnicode_DecodeUTF8(utf8.constData(), utf8.size(), "replace");
}

PyObject* to_python(const value& v) {
    switch (v.kind) {
    case type::none:
        Py_RETURN_NONE;
    case type::int_:
        return PyLong_FromLong(v.i);
    case type::float_:
        return PyFloat_FromDouble(v.f);
    case type::string:
        return to_python(v.s);
    case type::int_array:
    case type::float_array:
    case type::string_array:
        return list_of(v);
    case type::vector:
        return floats_of({v.v.x, v.v.y, v.v.z});
    case type::matrix:
        return floats_of(v.fa);
    case type::vector_array: {
        // As Maya hands a vector array to Python: the components one after another.
        QVector<double> flat;
        for (const mel::vec3& x : v.va)
            flat << x.x << x.y << x.z;
        return floats_of(flat);
    }
    }
    Py_RETURN_NONE;
}

bool to_mel_argument(PyObject* o, value& out) {
    if (scalar_of(o, out))
        return true;
    if (PyErr_Occurred())
        return false;
    if (PyList_Check(o) || PyTuple_Check(o)) {
        owned sequence(PySequence_Fast(o, "a list"));
        return sequence && array_of(sequence.get(), out);
    }
    refuse(o);
    return false;
}

value to_mel_result(PyObject* o) {
    value out;
    if (o == Py_None)
        return out;
    if (to_mel_argument(o, out))
        return out;
    PyErr_Clear();
    owned text(PyObject_Str(o));
    if (!text) {
        PyErr_Clear();
        return value::of_string(QString());
    }
    return value::of_string(text_of(text.get()));
}

} // namespace host::python
