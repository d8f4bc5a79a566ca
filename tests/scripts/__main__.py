"""The tests of the scripts: their refusals, their endings and what they leave.

    tests/scripts [NAME...]    only the tests whose names hold one of these
"""

import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True

loader = unittest.TestLoader()
loader.testNamePatterns = [f"*{name}*" for name in sys.argv[1:]] or None
suite = loader.discover(str(Path(__file__).parent), pattern="*_test.py")
result = unittest.TextTestRunner(verbosity=2).run(suite)
sys.exit(not result.wasSuccessful() or not result.testsRun)
