"""./lint looks again at what has changed, and only at that; and which way includes run."""

import json
import unittest

from house import House

SOURCES = ("app/a.cpp", "app/b.cpp")


class Lint(unittest.TestCase):
    """A house with two sources; a.cpp includes a header of the house and one of the system."""

    def setUp(self):
        self.house = self.enterContext(House(is_installed=False))
        self.place = self.house.place
        for part in ("platform", "companions"):
            (self.place / part).unlink()
        self.system_header = self.house.top / "system.h"
        for file in (*SOURCES, "app/a.h", "platform/ce_types.h", self.system_header, ".clang-tidy"):
            (self.place / file).parent.mkdir(exist_ok=True)
            (self.place / file).write_text("// first\n")
        self.list = self.place / "scripts/includes_upwards"
        self.list.write_text("")
        for name in ("clang-format", "shellcheck"):
            self.stand_in(name, "cat >/dev/null")
        self.stand_in("../house/packaging/manual/check.sh", "")
        self.stand_in("clang-tidy", self.tidy())
        self.stand_in("cppcheck", self.cppcheck())
        self.stand_in("ninja", "printf '%s\\n' 'a.obj: #deps 3, (VALID)' '    ../../app/a.cpp' '    ../../app/a.h' "
                      f"'    {self.system_header}' '' 'b.obj: #deps 1, (VALID)' '    {self.place}/app/b.cpp' ''")
        self.compile_by("g++ -O2")

    def stand_in(self, name, script):
        file = self.house.bin / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(f"#!/bin/sh\n{script}\n")
        file.chmod(0o755)

    def tidy(self, version=1):
        return f'[ "$1" != --version ] || {{ echo {version}; exit; }}\n' \
            f'for source; do :; done; echo "$source" >>"{self.house.top}/looked"; ! grep -n fault "$source"'

    def cppcheck(self, version=1):
        return f'[ "$1" != --version ] || {{ echo {version}; exit; }}\n' \
            f'for word; do case $word in --cppcheck-build-dir=*) echo "$word" >>"{self.house.top}/accounts" ;; esac; done'

    def compile_by(self, command):
        folder = self.place / "build/desktop"
        folder.mkdir(parents=True, exist_ok=True)
        commands = [{"directory": str(folder), "command": f"{command if 'b.cpp' in source else 'g++'} -c {self.place}/{source}",
                     "file": f"{self.place}/{source}"} for source in SOURCES]
        text = "[\n" + ",\n".join(
            "{\n" + ",\n".join(f'  "{name}": {json.dumps(value)}' for name, value in entry.items()) + "\n}" for entry in commands
        ) + "\n]\n"
        (folder / "compile_commands.json").write_text(text)

    def looked_at(self, status=0):
        """The sources that clang-tidy is given in a run."""
        looked = self.house.top / "looked"
        looked.unlink(missing_ok=True)
        found, said = self.house.run(script="lint")
        self.assertEqual(found, status, said)
        return sorted(looked.read_text().split()) if looked.exists() else []

    def accounts(self):
        return (self.house.top / "accounts").read_text().split()

    def test_what_was_clean_is_not_looked_at_again(self):
        self.assertEqual(self.looked_at(), list(SOURCES))
        self.assertEqual(self.looked_at(), [])
        for file in (*SOURCES, "app/a.h"):  # as a fresh clone does
            (self.place / file).touch()
        self.assertEqual(self.looked_at(), [])
        self.assertEqual(len(set(self.accounts())), 1)

    def test_what_has_changed_is(self):
        self.looked_at()
        (self.place / "app/b.cpp").write_text("// second\n")
        self.assertEqual(self.looked_at(), ["app/b.cpp"])
        (self.place / "app/a.h").write_text("// second\n")
        self.assertEqual(self.looked_at(), ["app/a.cpp"])
        self.system_header.write_text("// second\n")
        self.assertEqual(self.looked_at(), ["app/a.cpp"])
        self.compile_by("g++ -O3")
        self.assertEqual(self.looked_at(), ["app/b.cpp"])

    def test_so_is_all_when_the_tool_or_its_configuration_has(self):
        self.looked_at()
        (self.place / ".clang-tidy").write_text("// second\n")
        self.assertEqual(self.looked_at(), list(SOURCES))
        self.stand_in("clang-tidy", self.tidy(version=2))
        self.assertEqual(self.looked_at(), list(SOURCES))
        self.stand_in("cppcheck", self.cppcheck(version=2))
        self.looked_at()
        (self.place / "scripts/cppcheck.suppressions").write_text("// none\n")
        self.looked_at()
        self.assertEqual(len(set(self.accounts())), 3)

    def test_what_was_not_clean_is_looked_at_until_it_is(self):
        (self.place / "app/b.cpp").write_text("// fault\n")
        self.looked_at(status=1)
        self.assertEqual(self.looked_at(status=1), ["app/b.cpp"])
        (self.place / "app/b.cpp").write_text("// first\n")
        self.assertEqual(self.looked_at(), ["app/b.cpp"])
        (self.place / "app/b.cpp").write_text("// fault\n")
        self.assertEqual(self.looked_at(status=1), ["app/b.cpp"], "what was clean once may not be again")

    def includes(self, file, header):
        (self.place / file).parent.mkdir(exist_ok=True)
        (self.place / file).write_text(f'#include "{header}"\n')

    def assert_finds(self, *complaints):
        status, said = self.house.run(script="lint")
        for complaint in complaints:
            self.assertIn(complaint, said)
        self.assertEqual(said.count("scripts/includes_upwards"), len(complaints), said)
        self.assertEqual(status, 1 if complaints else 0, said)

    def test_includes_run_down(self):
        self.includes("app/a.cpp", "search/a.h")
        self.includes("filelist/a.cpp", "search/a.h")
        self.includes("search/a.h", "common/a.h")
        self.includes("common/a.h", "platform/a.h")
        self.assert_finds()
        self.includes("platform/a.h", "common/a.h")
        self.includes("common/a.h", "search/a.h")
        self.includes("search/a.h", "app/a.h")
        self.assert_finds("platform/a.h includes common/a.h, which", "common/a.h includes search/a.h, which",
                          "search/a.h includes app/a.h, which")

    def test_what_runs_up_is_listed_and_no_more_than_that(self):
        self.includes("search/a.cpp", "app/a.h")
        self.includes("search/b.cpp", "app/state.h")
        self.includes("common/a.h", "app/state.h")
        self.list.write_text("# A reason.\nsearch/a.cpp app/a.h\n* app/state.h\n")
        self.assert_finds("common/a.h includes app/state.h, which")
        self.list.write_text("# A reason.\nsearch/a.cpp app/a.h\n* app/state.h\ncommon/a.h app/state.h\n")
        self.assert_finds()
        self.includes("search/a.cpp", "common/a.h")
        self.includes("search/b.cpp", "common/a.h")
        self.assert_finds("no longer there: search/a.cpp app/a.h", "no longer there: * app/state.h")

    def test_what_is_not_compiled_is_always_looked_at(self):
        (self.place / "app/c.cpp").write_text("// first\n")
        self.looked_at()
        self.assertEqual(self.looked_at(), ["app/c.cpp"])
