"""Why a record came out as it did: what decided each label, and what it is otherwise.

    from tavik_agent.explanation import explain
    explain(step="relax", query_text="defects associated with GaN")["fields"]["magnetic_class"]

The rules are asked, not written a second time: a change of a rule, a keyword or a table needs no
change here.
"""

from .explain import explain
from .lookup import Answer, lookup
from .results import Cause, Explanation, FieldExplanation

__all__ = ["Answer", "Cause", "Explanation", "FieldExplanation", "explain", "lookup"]
