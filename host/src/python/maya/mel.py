"""MEL from Python."""
import _mayahost


def eval(text):
    """Runs MEL text; returns the value of its last statement, converted as maya.cmds
    converts results. An error in the MEL is printed and raises RuntimeError."""
    return _mayahost.mel_eval(text)
