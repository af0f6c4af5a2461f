"""The command tavik-characterize: shows a record, answers a log of requests, compares two runs."""

from .nulls import without_nulls

__all__ = ["FAILURE", "NAME", "PACKAGE", "without_nulls"]

NAME = "tavik-characterize"
PACKAGE = "tavik-agent-material-characterization"
FAILURE = 2  # the exit status when the command could not do what was asked
