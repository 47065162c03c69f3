"""Whether what the command line prints is what docs/strutwright.schema.json promises, and the schema tells right from
wrong.

    schema_test.py STRUTWRIGHT-CLI SCHEMA MODELS-FOLDER EXAMPLE
"""

import copy
import json
import pathlib
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

import jsonschema

program, schema_file, models_folder, example = sys.argv[1:]
schema = json.loads(pathlib.Path(schema_file).read_text())
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)


def printed(*arguments):
    run = subprocess.run([program, *arguments], capture_output=True, text=True, check=False)
    return [json.loads(line) for line in run.stdout.splitlines()]


models = sorted(str(path) for path in pathlib.Path(models_folder).glob("*.stw"))
models = [model for model in models if pathlib.Path(model).stat().st_size < 20000]
assert len(models) > 30, models
shown = [printed("show", "--format", "json", model)[0] for model in models[-10:]]
analysed = printed("analyse", "-j", "2", "--format", "json", *models)
checked = printed("analyse", "-j", "2", "--check", "--format", "json", *models[:12])
assert len(analysed) == len(models)
assert {result["result"] for result in analysed} == {"ok", "unstable", "failed"}
for value in shown + analysed + checked:
    validator.validate(value)


def expect_wrong(value, change):
    wrong = copy.deepcopy(value)
    change(wrong)
    assert not validator.is_valid(wrong), wrong


model = shown[-1]
expect_wrong(model, lambda m: m.pop("nodes"))
expect_wrong(model, lambda m: m.update(version=2))
expect_wrong(model, lambda m: m["nodes"][0].pop("x"))
expect_wrong(model, lambda m: m["nodes"][0].update(x="1"))
expect_wrong(model, lambda m: m["members"][0].update(e=None))
result = next(each for each in analysed if each["result"] == "ok" and each["members"])
expect_wrong(result, lambda r: r.update(result="fine"))
expect_wrong(result, lambda r: r.pop("version"))
expect_wrong(result, lambda r: r["members"][0].pop("force"))

with tempfile.TemporaryDirectory() as folder:
    plot = pathlib.Path(folder, "depth.svg")
    run = subprocess.run([sys.executable, example, program, plot], capture_output=True, text=True, check=True)
    assert run.stdout.startswith("100 girders, 1.00 to 4.96 m deep: sag "), run.stdout
    lines = xml.etree.ElementTree.parse(plot).getroot().findall("{http://www.w3.org/2000/svg}polyline")
    assert [len(line.get("points").split()) for line in lines] == [100, 100]
