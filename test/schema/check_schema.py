#!/usr/bin/env python3
"""Checks docs/profile-list.schema.json with an independent validator: which documents it accepts and refuses.

usage: check_schema.py SOURCE_FOLDER
"""
import copy
import json
import pathlib
import sys

try:
    from jsonschema import Draft202012Validator
except ImportError:
    print("skipped: the Python package jsonschema is missing")
    sys.exit(77)

folder = pathlib.Path(sys.argv[1])


def load(name):
    return json.loads((folder / name).read_text(encoding="utf-8"))


schema = load("docs/profile-list.schema.json")
Draft202012Validator.check_schema(schema)
validator = Draft202012Validator(schema)
versions = sorted((folder / "domain/Payloads/data/default-products").glob("version-*.json"))
factory = load(versions[-1])
accepted = {
    "the factory document": factory,
    "a profile with all members": load("domain/Payloads/test/Infrastructure/full-profile.json"),
    "the empty list": [],
}
for example in ("lidar", "camera-nadir", "camera-oblique"):
    accepted[example] = load(f"docs/examples/{example}.json")

MISSING = object()
lidar, trajectory = ("lidar",), ("trajectory",)
# Changes of the first factory profile: the path of a member, its new value, and whether the schema accepts it.
changes = [
    (("id",), -1, False),
    (("id",), 4294967296, False),
    (("id",), 1.5, False),
    (("name",), "", False),
    (("product",), MISSING, False),
    (("serial_number",), None, True),
    (("serial_number",), 7, False),
    (("unknown",), 7, True),
    (("creation_time",), 2020, False),
    (lidar, None, True),
    (lidar, MISSING, True),
    (lidar, [], False),
    (trajectory, None, False),
    (trajectory + ("imu_external",), None, True),
    (trajectory + ("stabilized_mount",), "other", False),
    (trajectory + ("imu_onboard", "gnss_standard_deviation"), "sd1m", False),
    (trajectory + ("imu_onboard", "mounting_angles", "x", "value"), 1.5, False),
    (trajectory + ("imu_onboard", "mounting_angles", "x", "value"), -2147483649, False),
    (lidar + ("alignment",), "x y", False),
    (lidar + ("alignment",), "-x z y", True),
    (lidar + ("imu_latency", "value"), "1", False),
    (lidar + ("imu_latency", "value"), MISSING, False),
    (lidar + ("imu_latency", "unit"), "s", False),
    (lidar + ("imu_latency", "maximum"), MISSING, False),
    (lidar + ("imu_latency", "precision"), MISSING, True),
    (lidar + ("imu_latency", "precision"), None, False),
    (lidar + ("imu_latency", "presets"), {"slow": 0.5}, True),
    (lidar + ("imu_latency", "presets"), {"slow": "0.5"}, False),
    (lidar + ("georeferencing", "field_of_views"), [], False),
    (lidar + ("georeferencing", "calibration_document"), None, True),
    (lidar + ("georeferencing", "calibration_document"), {"name": ""}, False),
    (lidar + ("lidar_coverage_preview", "downsampling_rate", "value"), 1, False),
    (lidar + ("lidar_coverage_preview", "downsampling_rate", "value"), 0.5, True),
    (lidar + ("ground_classification", "terrain_typology"), ["a", 1], False),
    (lidar + ("ground_classification", "dsm"), MISSING, False),
]

failures = [name for name, document in accepted.items() if not validator.is_valid(document)]
if validator.is_valid(factory[0]):
    failures.append("a profile that is not in a list")
for path, value, isAccepted in changes:
    document = copy.deepcopy(factory[:1])
    parent = document[0]
    for key in path[:-1]:
        parent = parent[key]
    if value is MISSING:
        del parent[path[-1]]
    else:
        parent[path[-1]] = value
    if validator.is_valid(document) != isAccepted:
        failures.append(f"{'.'.join(path)} = {value!r}")
for failure in failures:
    print(f"wrong result for {failure}")
sys.exit(1 if failures else 0)
