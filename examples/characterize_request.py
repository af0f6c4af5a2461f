"""Characterize one request and print its record as JSON.

Usage: characterize_request.py [QUERY]. Without a query, a complete request is made as a planner
would make it: step parameters with an element block, and the intent extracted from the query.
"""

import json
import sys
from typing import Any

from tavik_agent.material_characterization import characterize_material

PLANNED_REQUEST: dict[str, Any] = {
    "step": "relax",
    "step_params": {"element": [{"species": "Fe"}, {"species": "O"}]},
    "query_text": "Relax antiferromagnetic Fe2O3 with DFT+U",
    "query_intent": {"correlation": "dft+u", "magnetism": "antiferromagnetic"},
}


def main() -> None:
    query = " ".join(sys.argv[1:])
    request = {"step": "relax", "query_text": query} if query else PLANNED_REQUEST
    print(json.dumps(characterize_material(**request), indent=2, ensure_ascii=False))


if __name__ == "__main__":
    main()
