"""Checks JSON documents against a JSON Schema: fits_schema.py SCHEMA DOCUMENT..."""
import json
import sys

import jsonschema


def read(name):
    with open(name, encoding="utf-8") as file:
        return json.load(file)


validator_class = jsonschema.Draft202012Validator
schema = read(sys.argv[1])
validator_class.check_schema(schema)
faults = [f"{name}: {error.json_path}: {error.message}"
          for name in sys.argv[2:] for error in validator_class(schema).iter_errors(read(name))]
print("\n".join(faults) if faults else f"{len(sys.argv) - 2} documents fit")
sys.exit(1 if faults else 0)
