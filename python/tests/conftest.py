import os
import pathlib

import pytest

SOURCE = pathlib.Path(os.environ.get("TARVO_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))


@pytest.fixture
def examples():
    return SOURCE / "examples"


@pytest.fixture
def test_data():
    return SOURCE / "tests" / "data"
