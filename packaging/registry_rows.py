"""What stands in the registry for a DLL that serves COM classes: what the DLL writes itself when it is
registered. An installer writes the same as rows of its own, so that it can take them back."""

import re
from collections import namedtuple
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# Where the DLL will lie is the installer's to say.
FILE = "<the DLL>"
FOLDER = "<its folder>"

# One text below Software\Classes. An empty name is the key's default.
Row = namedtuple("Row", ["key", "name", "text"])
Server = namedtuple("Server", ["dll", "interfaces", "classes", "class_pattern", "prog_id"])

SERVERS = [
    Server("Quorbind.dll", "component/quorbind.idl", "component/classes.def",
           re.compile(r'^QUOR_CLASS\((?P<name>\w+), \w+, "(?P<description>.+)"\)$', re.M),
           "Quorbind.{name}"),
    Server("QuorToolset.dll", "component/toolset/quor_toolset.idl", "component/toolset/classes.def",
           re.compile(r'^QUOR_CLASS\((?P<name>\w+), "(?P<id>[\w.]+)", \w+, "(?P<description>.+)"\)$',
                      re.M),
           "{id}"),
]

MAJOR_VERSION = 1
VERSION = "1.0"
# The system's own stand-ins for objects that are called from other apartments.
PROXIES = {"interface": "{00020424-0000-0000-C000-000000000046}",
           "dispinterface": "{00020420-0000-0000-C000-000000000046}"}

DEFINITION = re.compile(
    r"\[([^\[\]]*)\]\s*(library|interface|dispinterface|coclass)\s+(\w+)\s*(?::\s*\w+\s*)?\{")


def definitions(idl):
    """Kind, name, identity and help text of what an interface definition defines."""
    for attributes, kind, name in DEFINITION.findall(idl):
        identity = re.search(r"uuid\(([0-9A-F-]+)\)", attributes)[1]
        text = re.search(r'helpstring\("(.*)"\)', attributes)
        yield kind, name, "{" + identity + "}", text[1] if text else ""


def class_rows(prog_id, description, identity, library):
    versioned = f"{prog_id}.{MAJOR_VERSION}"
    key = f"CLSID\\{identity}"
    yield Row(key, "", description)
    yield Row(f"{key}\\InprocServer32", "", FILE)
    yield Row(f"{key}\\InprocServer32", "ThreadingModel", "Apartment")
    yield Row(f"{key}\\ProgID", "", versioned)
    yield Row(f"{key}\\TypeLib", "", library)
    yield Row(f"{key}\\VersionIndependentProgID", "", prog_id)
    yield Row(prog_id, "", description)
    yield Row(f"{prog_id}\\CLSID", "", identity)
    yield Row(f"{prog_id}\\CurVer", "", versioned)
    yield Row(versioned, "", description)
    yield Row(f"{versioned}\\CLSID", "", identity)


def library_rows(identity, text, bits):
    key = f"TypeLib\\{identity}\\{VERSION}"
    yield Row(key, "", text)
    yield Row(f"{key}\\0\\win{bits}", "", FILE)
    yield Row(f"{key}\\FLAGS", "", "0")
    yield Row(f"{key}\\HELPDIR", "", FOLDER)


def interface_rows(kind, name, identity, library):
    key = f"Interface\\{identity}"
    yield Row(key, "", name)
    yield Row(f"{key}\\ProxyStubClsid32", "", PROXIES[kind])
    yield Row(f"{key}\\TypeLib", "", library)
    yield Row(f"{key}\\TypeLib", "Version", VERSION)


def rows_of(server, bits):
    defined = list(definitions((ROOT / server.interfaces).read_text(encoding="utf-8")))
    [(library, text)] = [(identity, text) for kind, _, identity, text in defined if kind == "library"]
    identities = {name: identity for kind, name, identity, _ in defined if kind == "coclass"}
    rows = []
    for listed in server.class_pattern.finditer((ROOT / server.classes).read_text(encoding="utf-8")):
        rows += class_rows(server.prog_id.format(**listed.groupdict()), listed["description"],
                           identities[listed["name"]], library)
    rows += library_rows(library, text, bits)
    for kind, name, identity, _ in defined:
        if kind in PROXIES:
            rows += interface_rows(kind, name, identity, library)
    return rows
