"""Running Python later, on the host's main thread."""
import functools

import _mayahost


def executeDeferred(func, *args, **kwargs):
    """Runs a callable (with the arguments given) or a Python text when the host is next
    idle, in order with everything else queued there."""
    if isinstance(func, str):
        if args or kwargs:
            raise TypeError("executeDeferred: a text takes no arguments")
        _mayahost.defer(func)
    elif callable(func):
        _mayahost.defer(functools.partial(func, *args, **kwargs) if args or kwargs else func)
    else:
        raise TypeError("executeDeferred takes a callable or a text")


def executeInMainThreadWithResult(func, *args, **kwargs):
    """Calls func and returns its result; scripts run on the main thread already."""
    if isinstance(func, str):
        raise TypeError("executeInMainThreadWithResult takes a callable")
    return func(*args, **kwargs)


def processIdleEvents():
    """Runs what waits in the idle queue now."""
    _mayahost.process_idle()
