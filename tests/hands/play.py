"""Plays the scenes of scenarios/ on one running program.
play.py <folder of the programs> <folder for what is written> [word that the sentences must hold]"""

import importlib
import pathlib
import sys
import time

from hands import BRISK, Hands, Wrong
from scenes import SCENES

HERE = pathlib.Path(__file__).parent


def play(hands, sentence, scene):
    """Whether it held."""
    begin = time.monotonic()
    try:
        if not hands.is_running():
            hands.start()
        hands.pace = BRISK
        scene(hands)
        verdict = "ok   "
    except Wrong as wrong:
        verdict = "WRONG"
        sentence += f"\n        {wrong}"
        hands.stop()  # the next scene begins with a program that nothing has gone wrong with
    print(f"  {verdict} {time.monotonic() - begin:5.1f} s  {sentence}")
    return verdict != "WRONG"


def main(programs, out, word=""):
    for path in sorted((HERE / "scenarios").glob("*.py")):
        importlib.import_module(f"scenarios.{path.stem}")
    hands = Hands(programs, out)
    try:
        held = [play(hands, sentence, scene) for sentence, scene in SCENES if word in sentence]
    finally:
        hands.end()
    print(f"{sum(held)} of {len(held)} scenes held")
    return 0 if held and all(held) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
