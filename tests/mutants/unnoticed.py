"""Changes the core, one small change at a time, and lists what no native test notices.

    unnoticed.py <root of the tree> <build folder> <list of explained mutants> [<how many> [<start number>]] [--again <build folder>]
    unnoticed.py <root> <build folder> <list> --only <text of a mutant...>

The build is one of Ninja's, built. As many mutants as asked for are drawn from all there are; the same start number draws the
same ones of the same sources. A mutant that is no C++, or whose machine code is that of the source, is not counted and another
one drawn. The test programs that link the changed file are built with it and run one after another, those nearest to it first,
until one fails, breaks off or takes too long, by which it is noticed. One that is not is tried again in the second build folder, such
as one under the sanitizers.

Prints the mutants that nobody noticed. Fails when fewer than 95 of 100 are noticed, when one that is not noticed stands nowhere in the
list, and when the list names one that is noticed or that no source has. --only tries the mutants whose text holds one of the given ones.
"""

import argparse
import os
import random
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutations import mutations
from test_build import DoesNotCompile, Mutant, TestBuild

GOAL = 95.0
CORE = r"(?:dlglib|platform/suite)/(?:[a-z]+/)*[a-z0-9_]+\.(?:cpp|h)"
# A program that takes so many times as long as with the source hangs; on a busy machine some take long by themselves.
TIMES_AS_LONG = 10
LEAST_SECONDS = 60
# A mutant that only ever takes more memory ends soon. Programs under the sanitizers reserve more than any machine has.
MOST_KIB = 4 << 20

NO_MUTANT, NOTICED, UNNOTICED = range(3)


def explained(path):
    lines = Path(path).read_text(encoding="utf-8").splitlines()
    return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


class Trial:
    """What is needed to try one mutant."""

    def __init__(self, root, builds):
        self.root, self.builds = Path(root), builds
        self.seconds = {}

    def measure(self):
        """How long each program may take, from a run of the source; false when one fails already."""
        for build in self.builds:
            for program in build.programs:
                start = time.monotonic()
                path = build.folder / program.path
                if not build.runs_well(program, path, build.folder, None):
                    print(f"{path} fails without a mutant")
                    return False
                self.seconds[(build, program.path)] = max(LEAST_SECONDS, TIMES_AS_LONG * (time.monotonic() - start))
        return True

    def run_in(self, build, mutation):
        source = (self.root / mutation.path).read_text(encoding="utf-8")
        outcome = NO_MUTANT
        with tempfile.TemporaryDirectory(prefix="mutant", dir=build.folder) as folder:
            mutant = Mutant(build, mutation.path, mutation.of(source), folder)
            for program in build.nearest_first(mutation.path):
                passes = mutant.passes(program, self.seconds[(build, program.path)])
                if passes is False:
                    return NOTICED
                if passes:
                    outcome = UNNOTICED
        return outcome

    def run(self, mutation):
        outcome = UNNOTICED
        try:
            for build in self.builds:
                outcome = self.run_in(build, mutation)
                if outcome != UNNOTICED:
                    break
        except DoesNotCompile:
            outcome = NO_MUTANT
        return outcome


def tried(trial, drawn, count):
    """(mutation, outcome) of the first `count` that are mutants, and of what lies between them, in the order of drawing."""
    results = []
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        while drawn and count > 0:
            batch = [drawn.pop() for _ in range(min(count, len(drawn)))]
            for mutation, outcome in zip(batch, pool.map(trial.run, batch)):
                if outcome == NO_MUTANT:
                    continue
                results.append((mutation, outcome))
                count -= 1
                if outcome == UNNOTICED:
                    print(f"  not noticed: {mutation}", flush=True)
    return results


def judged(results, listed, known, complete):
    """What is to be said of the results, and whether all is well."""
    unnoticed = {str(mutation) for mutation, outcome in results if outcome == UNNOTICED}
    noticed = {str(mutation) for mutation, outcome in results if outcome == NOTICED} - unnoticed
    said = [f"not noticed, and not explained: {text}" for text in sorted(unnoticed - listed)]
    said += [f"explained, but no source has it: {text}" for text in sorted(listed - known)]
    said += [f"explained, but noticed: {text}" for text in sorted(listed & noticed)]
    share = 100.0 * len([1 for _, outcome in results if outcome == NOTICED]) / max(1, len(results))
    few = complete and share < GOAL
    return [*said, f"{share:.1f} % of {len(results)} mutants noticed"], not said and not few and bool(results)


def arguments(words):
    parser = argparse.ArgumentParser()
    parser.add_argument("root")
    parser.add_argument("build")
    parser.add_argument("listed")
    parser.add_argument("count", type=int, nargs="?", default=60)
    parser.add_argument("start", type=int, nargs="?", default=1)
    parser.add_argument("--again")
    parser.add_argument("--only", nargs="+")
    return parser.parse_args(words)


def main(words):
    given = arguments(words)
    builds = [TestBuild(given.root, given.build, MOST_KIB)]
    if given.again:
        builds.append(TestBuild(given.root, given.again))
    trial = Trial(given.root, builds)
    if not trial.measure():
        return 1
    found = [mutation for path in builds[0].sources(CORE)
             for mutation in mutations(path, (Path(given.root) / path).read_text(encoding="utf-8"))]
    known = {str(mutation) for mutation in found}
    if given.only:
        found = [mutation for mutation in found if any(text in str(mutation) for text in given.only)]
        given.count = len(found)
    random.Random(given.start).shuffle(found)
    results = tried(trial, found, given.count)
    said, well = judged(results, explained(given.listed), known, not given.only)
    print("\n".join(said))
    return 0 if well else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
