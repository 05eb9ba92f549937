"""What script/bench is asked for."""

FLAGS = {"--check", "--plot", "--last", "--windows"}


def refusal_of(flags):
    """Why these flags can't be obeyed, as a sentence; None where they can."""
    unknown = sorted(set(flags) - FLAGS)
    if unknown:
        return f"There is no {unknown[0]}."
    if {"--check", "--windows"} <= set(flags):
        return "--check goes without --windows: the Windows build has no floor, and so no bounds."
    return None


def refusal_of_disk(free, needed):
    """Why a run would not come to its end with so many bytes; None where it would."""
    if free >= needed:
        return None
    return (f"The folder for temporary files has {free / 1e9:.0f} GB free, and a run may need "
            f"{needed / 1e9:.0f} GB. Name another folder with TMPDIR.")


def refusal_of_last(figures, needed):
    """Why a report can't be made of the figures of the run before; None where it can."""
    lacking = sorted({key for key in needed if key not in figures})
    if not lacking:
        return None
    name, size = lacking[0]
    return (f"The run before did not measure {name} at {size:,} ({len(lacking)} figures are "
            "lacking). Measure anew, without --last.")
