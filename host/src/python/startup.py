# Run once as the host's interpreter starts: the maya package is imported from the host,
# and Python's streams print to the host's output.
import importlib.abc
import importlib.util
import io
import sys

import _mayahost


class _HostPackage(importlib.abc.MetaPathFinder, importlib.abc.Loader):
    """Finds the maya package in the host, ahead of any other maya on sys.path."""

    def find_spec(self, fullname, path=None, target=None):
        found = _mayahost.source(fullname)
        if found is None:
            return None
        _, is_package, origin = found
        found = importlib.util.spec_from_loader(fullname, self, origin=origin,
                                               is_package=is_package)
        found.has_location = True  # __file__ names the module's place in the host
        return found

    def create_module(self, module_spec):
        return None

    def exec_module(self, module):
        text, _, origin = _mayahost.source(module.__name__)
        exec(compile(text, origin, "exec"), module.__dict__)


class _HostStream(io.TextIOBase):
    """sys.stdout or sys.stderr: whole lines go to the host's output."""

    encoding = "utf-8"

    def __init__(self, is_error):
        super().__init__()
        self._is_error = is_error

    def writable(self):
        return True

    def write(self, text):
        if not isinstance(text, str):
            raise TypeError(f"write() argument must be str, not {type(text).__name__}")
        _mayahost.write(text, self._is_error)
        return len(text)

    def flush(self):
        _mayahost.flush()


class _NoInput(io.TextIOBase):
    """sys.stdin: nobody types into a host's script, so input() meets its end at once.
    It stays open, whatever a script does to it."""

    def readable(self):
        return True

    def readline(self, size=-1):
        return ""

    def read(self, size=-1):
        return ""

    def close(self):
        pass


sys.meta_path.insert(0, _HostPackage())
sys.stdout = _HostStream(False)
sys.stderr = _HostStream(True)
sys.stdin = _NoInput()
