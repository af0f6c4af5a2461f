"""Characterize one request and print its record as JSON.

Usage: characterize_request.py [QUERY]. Without a query, the request is the example of README.md,
which names its elements in the step parameters.
"""

import json
import sys
from typing import Any

from tavik_agent.material_characterization import characterize_material

EXAMPLE: dict[str, Any] = {
    "step": "relax",
    "step_params": {"element": [{"species": "Fe"}, {"species": "O"}]},
    "query_text": "Relax antiferromagnetic Fe2O3 with DFT+U",
}


def main() -> None:
    query = " ".join(sys.argv[1:])
    request = {"step": "relax", "query_text": query} if query else EXAMPLE
    print(json.dumps(characterize_material(**request), indent=2, ensure_ascii=False))


if __name__ == "__main__":
    main()
