"""check_records.py SCHEMA VXROI SCENES: every kind of record that vxroi prints follows the schema.

A few that it must not print do not.
"""

import copy
import json
import pathlib
import subprocess
import sys
import tempfile

import jsonschema

# Says that there is a face at the right, and one beyond it.
DETECTOR = """sed -u 's/}$/,"faces": [{"x": 250, "y": 9, "width": 20, "height": 20, "score": 1.5},"""  \
    """{"x": 290, "y": -9, "width": 20, "height": 20}]}/'"""

schema_path, vxroi, scenes = sys.argv[1:]
schema = json.loads(pathlib.Path(schema_path).read_text(encoding="utf-8"))
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)


def records(folder, *arguments):
    printed = subprocess.run([vxroi, *arguments], cwd=folder, stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL, check=False).stdout
    return [json.loads(line) for line in printed.splitlines()]


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    subprocess.run([scenes, "."], cwd=folder, check=True, stdout=subprocess.DEVNULL)
    # A picture without salience: 300 x 100 black pixels.
    (folder / "grey.png").write_bytes(b"P5 300 100 255\n" + bytes(300 * 100))
    (folder / "broken.png").write_text("no picture")
    (folder / "cut.jpg").write_bytes((folder / "balloon.png").read_bytes()[:20000])
    whole = records(folder, "crop", "balloon.png", "--ratio", "1:1,3:2", "--json")
    found = (whole
             + records(folder, "crop", "balloon.png", "--size", "50x50", "--focus", "0,0", "--json",
                       "-o", "{stem}-{ratio}.jpg")
             + records(folder, "crop", "balloon.png", "--size", "50x50", "--json",
                       "-o", "{stem}-{ratio}.jpg", "--if-exists", "skip")
             + records(folder, "crop", "balloon.png", "--ratio", "1:1", "--keep", "0,0,9,9", "--json")
             + records(folder, "crop", "balloon.png", "none.png", "--ratio", "2:1", "--json",
                       "--dry-run", "-o", "other/{stem}.jpg")
             + records(folder, "batch", ".", "--ratio", "1:1", "--checksum")
             + records(folder, "crop", "balloon.png", "--ratio", "1:1", "--avoid", "100,0,20,900",
                       "--weight", "gauss=3", "--json")
             + records(folder, "crop", "balloon.png", "--ratio", "1:1", "--map", "poppy.png", "--json")
             + records(folder, "crop", "balloon.png", "--ratio", "1:1", "--map", "none.png", "--json")
             + records(folder, "crop", "grey.png", "--ratio", "1:1", "--detector", DETECTOR, "--json")
             + records(folder, "crop", "grey.png", "--ratio", "1:1", "--detector", "exit 1",
                       "--detector-required", "--json")
             + records(folder, "batch", ".", "--ratio", "1:1"))

statuses = {record["status"] for record in found}
deciders = {crop.get("decidedBy") for record in found for crop in record.get("crops", [])}
outputs = {crop["output"].get("status") for record in found for crop in record.get("crops", [])}
assert statuses == {"ok", "failed"}, statuses
assert {"whole", "focus", "keep", "avoid", "faces", "salience"} <= deciders, deciders
assert outputs == {None, "written", "planned", "skipped"}, outputs
assert {"photo", "gauss=3 background=20", "map=poppy.png"} <= {record["settings"] for record in found}
for record in found:
    validator.validate(record)


def breaks(change):
    record = copy.deepcopy(whole[0])
    change(record)
    return not validator.is_valid(record)


assert breaks(lambda record: record.pop("path"))
assert breaks(lambda record: record.update(status="failed"))
assert breaks(lambda record: record.update(took=3))
assert breaks(lambda record: record["crops"][0].pop("source"))
assert breaks(lambda record: record["crops"][0].update(decidedBy="chance"))
assert breaks(lambda record: record["crops"][0]["output"].update(status="skipped", path="a.png"))
assert breaks(lambda record: record["file"].pop("modified"))
print(f"{len(found)} records follow the schema")
