"""How the scripts get the tools they lack."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from house import HOUSE

DEAD = "echo 'W: Failed to fetch http://dead.example/InRelease  Could not connect to dead.example:80 (192.0.2.1)' >&2\n"


class Installing(unittest.TestCase):
    """`need lha` on a machine that has everything else; what stands in for apt-get is a shell script."""

    def setUp(self):
        self.bin = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="tarvik-scripts.")))
        for tool in Path("/usr/bin").iterdir():
            if tool.name not in ("lha", "apt-get", "sudo"):
                (self.bin / tool.name).symlink_to(tool)
        self.put("sudo", '[ "$1" != -n ] || shift\nexec "$@"\n')

    def put(self, name, script):
        (self.bin / name).write_text("#!/bin/sh\n" + script)
        (self.bin / name).chmod(0o755)

    def need(self, update, install):
        """Needs lha where these are apt-get's two steps; the status, and what was said."""
        self.put("apt-get", f'case "$*" in\n*update*) {update} ;;\n*install*) {install} ;;\nesac\n')
        done = subprocess.run(
            ["bash", "-c", f"source '{HOUSE}/scripts/lib.sh'; need lha; echo ready"],
            env=os.environ | {"PATH": str(self.bin)}, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False,
        )
        return done.returncode, done.stdout + done.stderr

    def arrives(self):
        return f"printf '#!/bin/sh\\n' >'{self.bin}/lha'; chmod +x '{self.bin}/lha'"

    def test_a_dead_source_of_others_does_not_matter(self):
        status, said = self.need(DEAD + "exit 100", self.arrives())
        self.assertEqual(status, 0, said)
        self.assertIn("ready", said)

    def test_no_network_is_said_when_the_packages_do_not_come(self):
        for install in (
            "echo 'E: Failed to fetch lhasa.deb  Temporary failure resolving the mirror' >&2; exit 100",
            "echo 'E: Unable to locate package lhasa' >&2; exit 100",
        ):
            status, said = self.need(DEAD, install)
            self.assertEqual(status, 1, said)
            self.assertIn("no network: Debian's packages cannot be reached, and these are missing: lhasa", said)

    def test_another_failure_is_not_called_no_network(self):
        status, said = self.need(DEAD, "echo 'E: dpkg was interrupted' >&2; exit 100")
        self.assertEqual(status, 1, said)
        self.assertIn("dpkg was interrupted", said)
        self.assertIn("installing failed: lhasa", said)
        self.assertNotIn("no network", said)
