"""For scripts written for a standalone Maya: the host is running already."""


def initialize(name="python"):
    pass


def uninitialize():
    pass
