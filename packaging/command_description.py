"""What describe_command prints, for the scripts that make something of it."""

import json
import sys


class Command:
    """A subcommand, or the whole command, with the words by which it is called behind the command's
    name."""

    def __init__(self, described, words=()):
        self.words = words
        self.path = " ".join(words)
        self.name = described["name"]
        self.description = described["description"]
        self.footer = described["footer"]
        self.options = described["options"]
        self.positionals = described["positionals"]
        self.subcommands = [Command(one, (*words, one["name"])) for one in described["subcommands"]]

    def all(self):
        """This one and all below it, in the order of the help."""
        yield self
        for subcommand in self.subcommands:
            yield from subcommand.all()


def read_command():
    return Command(json.load(sys.stdin))


def names_file(value):
    return value["value"].removesuffix("...") in ("FILE", "OUT") or value.get("name") == "FILE"


def names_folder(value):
    return value["value"] == "DIR"
