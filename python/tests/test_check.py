import pytest
import tarvo

BROKEN = """{
  "SystemProperties": { "Frequency": 1000 },
  "LogicalInstances": [
    { "Name": "m", "IsMaster": true, "CompType": "PS_IGU_0", "Protocol": "AXI_MM", "ReadTC": "LX",
      "NumReadOutstanding": "32" }
  ],
  "Paths": []
}
"""


def test_check_places_every_finding_and_read_fails_at_the_first(examples, tmp_path):
    broken = tmp_path / "broken.json"
    broken.write_text(BROKEN)
    found = tarvo.check(broken)
    assert [(d.file, d.line, d.column, d.severity, d.id) for d in found] == [
        (str(broken), 4, 94, "error", "tarvo 8-101"), (str(broken), 5, 29, "error", "tarvo 8-101")]
    assert found[1].text == "'NumReadOutstanding': expected integer, found string \"32\" (schema rule 'type')"
    assert str(found[1]) == f"{broken}:5:29: error: {found[1].text} [tarvo 8-101]"
    assert tarvo.check(examples / "noc_traffic.json", strict=True) == []

    with pytest.raises(tarvo.DocumentError) as caught:
        tarvo.read(broken)
    error = caught.value
    assert (error.file, error.line, error.column, error.id, error.pointer) == (
        str(broken), 4, 94, "8-101", "#/LogicalInstances/0/ReadTC")
    with pytest.raises(TypeError, match="check\\(\\) argument 'strict' must be bool, not str"):
        tarvo.check(broken, strict="yes")
