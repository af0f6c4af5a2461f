"""These tests run on the module's own tables and on copies of the module."""

import pytest


@pytest.fixture(autouse=True)
def _known_tables():
    """Takes the place of the small tables that the other tests run on."""
