"""Prints the figures of a metrics file as JSON: [[name, path, value]...], read by the parser of those
who collect them, as OpenMetrics and as the older text. Run by the Python of the system's packages."""

import json
import pathlib
import sys

from prometheus_client import parser
from prometheus_client.openmetrics import parser as open_metrics


def samples(families):
    return [[sample.name, sample.labels.get("path"), sample.value]
            for family in families for sample in family.samples]


text = pathlib.Path(sys.argv[1]).read_bytes().decode("utf-8")
found = samples(open_metrics.text_string_to_metric_families(text))
older = samples(parser.text_string_to_metric_families(text))
if found != older:
    sys.exit("the two forms differ")
print(json.dumps(found))
