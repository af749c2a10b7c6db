"""Checks a SARIF log against the official schema and prints a line a result: read_sarif.py SCHEMA LOG"""
import json
import sys

import jsonschema


def read(name):
    with open(name, encoding="utf-8") as file:
        return json.load(file)


def place(location):
    physical = location.get("physicalLocation")
    if physical is None:
        return "nowhere"
    return f"{physical['artifactLocation']['uri']}:{physical.get('region', {}).get('startLine', 0)}"


schema, log = read(sys.argv[1]), read(sys.argv[2])
faults = [f"{error.path}: {error.message}" for error in jsonschema.Draft4Validator(schema).iter_errors(log)]
if faults:
    print("\n".join(faults))
    sys.exit(1)
for run in log["runs"]:
    rules = run["tool"]["driver"]["rules"]
    for result in run["results"]:
        if "ruleIndex" in result and rules[result["ruleIndex"]]["id"] != result["ruleId"]:
            sys.exit(f"ruleIndex {result['ruleIndex']} is not {result['ruleId']}")
        print(result["level"], result.get("ruleId", "-"), " ".join(map(place, result.get("locations", []))),
              "related:", " ".join(map(place, result.get("relatedLocations", []))),
              "suppressed:", " ".join(place(item["location"]) for item in result.get("suppressions", [])))
    for note in run["invocations"][0].get("toolExecutionNotifications", []):
        print("notification", note["level"], note["message"]["text"])
