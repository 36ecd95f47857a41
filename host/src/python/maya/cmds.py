"""Every command the host knows, built in or registered by a plug-in, as a function.

Commands are looked up when they are used, so a command that a plug-in registers later is
here at once. Arguments follow Maya's wrapper: positional values; flags as keyword
arguments by long or short name; True or False for a flag without a value; a tuple for a
flag with several values; a list for a flag used several times. Results come back as
None, int, float, str or a list of them. A failing command raises RuntimeError with its
message.
"""
import _mayahost


def _command(name):
    def command(*args, **flags):
        return _mayahost.call(name, args, flags)

    command.__name__ = command.__qualname__ = name
    command.__module__ = __name__
    command.__doc__ = f"The host command {name}."
    return command


def __getattr__(name):
    if name == "__all__":  # from maya.cmds import *
        return _mayahost.commands()
    if not name.startswith("__") and _mayahost.has_command(name):
        return _command(name)
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")


def __dir__():
    return sorted(set(globals()) | set(_mayahost.commands()))
