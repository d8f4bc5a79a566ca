"""Where the tests of the scripts find what they test."""

from pathlib import Path

HOUSE = Path(__file__).resolve().parents[2]
