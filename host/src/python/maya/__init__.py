"""The maya package of this host: cmds, mel, utils and standalone over its own commands."""
