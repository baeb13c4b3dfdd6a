"""Tests of examples/regression: runs the program and judges its tables and documents.

The figures of R stand in tests/data/regression_figures.csv, those of NIST in tests/data/strd; the
documents are checked by xmllint against the published schema and scored by pmml_scorer.py.
"""

import csv
import math
import os
import pathlib
import pty
import signal
import subprocess
import tempfile
import threading
import time
import unittest
import xml.etree.ElementTree as ElementTree

from pmml_scorer import NAMESPACE, RegressionScorer

PROGRAM = os.environ["REGRESSION_PROGRAM"]
ROOT = pathlib.Path(os.environ["PROJECT_ROOT"])
SCHEMA = ROOT / "tests/data/pmml-4-3.xsd"
PENGUINS = ROOT / "examples/data/penguins.csv"
DEMO_PREDICTORS = "flipper_length_mm,bill_length_mm,species,sex"


class RegressionTest(unittest.TestCase):
    """Runs the program in a directory of its own."""

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        self.document = self.directory / "model.pmml"
        self.predictions = self.directory / "predictions.csv"

    def run_program(self, *arguments, **options):
        return subprocess.run([PROGRAM, *map(str, arguments)], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, encoding="utf-8", timeout=120, **options)

    def write(self, name, text, encoding="utf-8"):
        path = self.directory / name
        path.write_bytes(text.encode(encoding))
        return path

    def fit(self, data, target, predictors=None, weight=None):
        """Fits with every output; the document is valid. The result is a Fit."""
        arguments = [data, "--target", target, "--statistics", "--pmml", self.document,
                     "--predictions", self.predictions]
        if predictors:
            arguments += ["--predictors", predictors]
        if weight:
            arguments += ["--weight", weight]
        run = self.run_program(*arguments)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assert_valid(self.document)
        self.assertEqual(sorted(p.name for p in self.directory.glob("*.part-*")), [])
        return Fit(run.stdout, self.document)

    def assert_valid(self, document):
        lint = subprocess.run([os.environ["XMLLINT"], "--noout", "--schema", SCHEMA, document],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")
        self.assertEqual(lint.returncode, 0, lint.stdout)

    def assert_close(self, value, expected, tolerance, what):
        self.assertLessEqual(abs(value - expected), tolerance * abs(expected),
                             "%s: %r, expected %r" % (what, value, expected))

    def assert_scores_as_predicted(self, data, tolerance=1e-12, encoding="utf-8-sig"):
        """The document's own coefficients give the predictions of the library, case by case."""
        scorer = RegressionScorer(self.document)
        with open(data, encoding=encoding, newline="") as file:
            cases = [case for case in csv.DictReader(file, skipinitialspace=True)]
        scored = [(case, scorer.score(case)) for case in cases
                  if all(case[name] != "" for name in scorer.inputs + [scorer.target])]
        with open(self.predictions, encoding="utf-8") as file:
            written = list(csv.DictReader(file))
        self.assertEqual(len(scored), len(written))
        self.assertGreater(len(written), 0)
        for (case, score), row in zip(scored, written):
            self.assertEqual(float(case[scorer.target]), float(row["observed"]))
            scale = max(abs(float(row["predicted"])), abs(float(row["observed"])))
            self.assertLessEqual(abs(score - float(row["predicted"])), tolerance * scale)
        return len(written)


class Fit:
    """What a run has told: the figures of the document by term, and the printed tables."""

    def __init__(self, tables, document):
        self.tables = tables
        root = ElementTree.parse(document).getroot()
        model = root.find(NAMESPACE + "RegressionModel")
        table = model.find(NAMESPACE + "RegressionTable")
        self.estimates = {"(Intercept)": float(table.get("intercept"))}
        self.redundant = []
        for predictor in table:
            name = self.term(predictor, "value")
            self.estimates[name] = float(predictor.get("coefficient"))
            mark = predictor.find(NAMESPACE + "Extension")
            if mark is not None and mark.get("name") == "isRedundant":
                self.redundant.append(name)
        self.tests = {self.term(test, "category"): test.attrib
                      for test in model.iter(NAMESPACE + "MultivariateStat")}
        self.quality = next(model.iter(NAMESPACE + "PredictiveModelQuality")).attrib
        self.univariate = {stats.get("field"): stats
                           for stats in model.iter(NAMESPACE + "UnivariateStats")}

    @staticmethod
    def term(element, category):
        if element.get("isIntercept") == "true":
            return "(Intercept)"
        value = element.get(category)
        return element.get("name") + (" = " + value if value is not None else "")

    def figure(self, term, name):
        if term == "(model)":
            return float(self.quality[{"r_squared": "r-squared", "adj_r_squared": "adj-r-squared",
                                       "sse": "sumSquaredError", "f": "fStatistic",
                                       "residual_df": "degreesOfFreedom",
                                       "cases": "numOfRecordsWeighted"}[name]])
        if name == "estimate":
            return self.estimates[term]
        return float(self.tests[term][{"std_error": "stdError", "t": "tValue",
                                       "p": "pValueFinal"}[name]])

    def line(self, beginning):
        """The one line of the tables that begins so."""
        lines = [l for l in self.tables.splitlines() if l.strip().startswith(beginning)]
        assert len(lines) == 1, (beginning, lines)
        return lines[0]


def figures_of_r(case):
    with open(ROOT / "tests/data/regression_figures.csv", encoding="utf-8") as file:
        rows = [row for row in csv.DictReader(file) if row["case"] == case]
    return [(row["term"], row["figure"], float(row["value"])) for row in rows]


class Penguins(RegressionTest):
    """The figures of R, the document, the predictions."""

    def assert_agrees_with_r(self, fit, case, tolerance=1e-10):
        figures = figures_of_r(case)
        self.assertGreater(len(figures), 10)
        for term, name, value in figures:
            self.assert_close(fit.figure(term, name), value, tolerance, term + " " + name)
        estimated = {term for term, name, _ in figures if name == "estimate"}
        self.assertEqual(estimated, set(fit.estimates) - set(fit.redundant))

    def test_the_demo(self):
        fit = self.fit(PENGUINS, "body_mass_g", DEMO_PREDICTORS)
        self.assert_agrees_with_r(fit, "demo")
        self.assertEqual(fit.redundant, ["species = Gentoo", "sex = FEMALE"])
        self.assertEqual([fit.estimates[term] for term in fit.redundant], [0.0, 0.0])
        self.assertEqual(self.assert_scores_as_predicted(PENGUINS), 333)

    def test_numbers_alone(self):
        fit = self.fit(PENGUINS, "bill_depth_mm", "bill_length_mm,body_mass_g")
        self.assert_agrees_with_r(fit, "numbers")
        self.assertEqual(fit.redundant, [])
        self.assertEqual(self.assert_scores_as_predicted(PENGUINS), 342)

    def test_a_category_alone(self):
        fit = self.fit(PENGUINS, "body_mass_g", "island")
        self.assert_agrees_with_r(fit, "category")
        self.assertEqual(fit.redundant, ["island = Dream"])
        self.assertEqual(self.assert_scores_as_predicted(PENGUINS), 342)

    def test_tables(self):
        fit = self.fit(PENGUINS, "body_mass_g", DEMO_PREDICTORS)
        self.assertEqual(fit.line("Cases used").split()[-1], "333")
        self.assertEqual(fit.line("Cases dropped").split()[-1], "11")
        rows = [l.split() for l in fit.tables.splitlines()]
        self.assertIn(["flipper_length_mm", "17.84651", "2.9017", "6.1504", "2.255e-09"], rows)
        self.assertIn(["species", "=", "Gentoo", "0", "redundant", ".", "."], rows)
        self.assertIn(["Residual", "2.787279e+07", "327", "85237.9"], rows)
        self.assertIn("R squared 0.8705155, adjusted 0.8685356", fit.tables)
        self.assertIn("Redundant, a linear combination of the terms before it: species = Gentoo, "
                      "sex = FEMALE", fit.tables)

    def test_univariate_statistics(self):
        fit = self.fit(PENGUINS, "body_mass_g", DEMO_PREDICTORS)
        self.assertEqual(list(fit.univariate), DEMO_PREDICTORS.split(",") + ["body_mass_g"])
        mass = fit.univariate["body_mass_g"]
        info = mass.find(NAMESPACE + "NumericInfo").attrib
        with open(PENGUINS, encoding="utf-8") as file:
            complete = [c for c in csv.DictReader(file)
                        if all(c[n] for n in DEMO_PREDICTORS.split(",") + ["body_mass_g"])]
        masses = [float(c["body_mass_g"]) for c in complete]
        mean = math.fsum(masses) / len(masses)
        deviation = math.sqrt(math.fsum((m - mean) ** 2 for m in masses) / (len(masses) - 1))
        self.assertEqual(mass.find(NAMESPACE + "Counts").get("totalFreq"), "333")
        self.assertEqual(float(info["minimum"]), min(masses))
        self.assertEqual(float(info["maximum"]), max(masses))
        self.assert_close(float(info["mean"]), mean, 1e-13, "mean")
        self.assert_close(float(info["standardDeviation"]), deviation, 1e-13, "deviation")
        counts = fit.univariate["species"].find(NAMESPACE + "DiscrStats/" + NAMESPACE + "Array")
        scorer = RegressionScorer(self.document)
        expected = [sum(c["species"] == s for c in complete) for s in scorer.valid_values("species")]
        self.assertEqual([float(n) for n in counts.text.split()], expected)

    def test_without_statistics_the_model_stands_alone(self):
        run = self.run_program(PENGUINS, "--target", "body_mass_g", "--predictors", "species",
                               "--pmml", self.document)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assert_valid(self.document)
        text = self.document.read_text(encoding="utf-8")
        self.assertNotIn("ModelStats", text)
        self.assertNotIn("Output", text)
        self.assertNotIn("Statistics of the fields", run.stdout)

    def test_without_predictors_all_other_columns_take_part(self):
        self.fit(PENGUINS, "body_mass_g")
        scorer = RegressionScorer(self.document)
        self.assertEqual(scorer.inputs, ["species", "island", "bill_length_mm", "bill_depth_mm",
                                         "flipper_length_mm", "sex"])
        self.assertEqual(self.assert_scores_as_predicted(PENGUINS), 333)

    def test_a_success_replaces_the_old_file_and_keeps_its_mode(self):
        self.document.write_text("old")
        self.document.chmod(0o640)
        self.fit(PENGUINS, "body_mass_g", "species")
        self.assertEqual(self.document.stat().st_mode & 0o777, 0o640)

    def test_a_link_stays_a_link(self):
        real = self.directory / "real.pmml"
        real.write_text("old")
        self.document.symlink_to(real)
        self.fit(PENGUINS, "body_mass_g", "species")
        self.assertTrue(self.document.is_symlink())
        self.assert_valid(real)

    def test_a_device_is_written_to(self):
        run = self.run_program(PENGUINS, "--target", "body_mass_g", "--pmml", "/dev/null")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertTrue(pathlib.Path("/dev/null").is_char_device())

    def test_help(self):
        run = self.run_program("--help")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        for option in ("--target", "--predictors", "--weight", "--pmml", "--statistics"):
            self.assertIn(option, run.stdout)


class Nist(RegressionTest):
    """The certified values of three Statistical Reference Datasets, by correct digits."""

    STRD = ROOT / "tests/data/strd"

    def correct_digits(self, name, data, predictors):
        with open(self.STRD / "certified.csv", encoding="utf-8") as file:
            certified = [row for row in csv.DictReader(file) if row["set"] == name]
        fit = self.fit(data, "y", ",".join(predictors))
        self.assertEqual(fit.redundant, [])
        self.assertEqual(len(certified), len(predictors) + 1)

        def digits(value, expected):
            expected = float(expected)
            error = abs(value - expected) / abs(expected)
            return 15.0 if error < 1e-15 else min(15.0, -math.log10(error))

        terms = ["(Intercept)"] + predictors
        estimates = min(digits(fit.figure(term, "estimate"), row["estimate"])
                        for term, row in zip(terms, certified))
        deviations = min(digits(fit.figure(term, "std_error"), row["standard_deviation"])
                         for term, row in zip(terms, certified))
        print("%s: %.1f correct digits in the estimates, %.1f in their standard deviations"
              % (name, estimates, deviations))
        self.assert_scores_as_predicted(data, tolerance=1e-11)
        return estimates, deviations

    def test_norris(self):
        estimates, deviations = self.correct_digits("norris", self.STRD / "norris.csv", ["x"])
        self.assertGreaterEqual(estimates, 10.0)
        self.assertGreaterEqual(deviations, 9.0)

    def test_pontius(self):
        with open(self.STRD / "pontius.csv", encoding="utf-8") as file:
            rows = list(csv.DictReader(file))
        lines = ["y,x,x2"] + ["%s,%s,%d" % (r["y"], r["x"], int(r["x"]) ** 2) for r in rows]
        data = self.write("pontius.csv", "\n".join(lines) + "\n")
        estimates, deviations = self.correct_digits("pontius", data, ["x", "x2"])
        self.assertGreaterEqual(estimates, 9.0)
        self.assertGreaterEqual(deviations, 9.0)

    def test_longley(self):
        predictors = ["x%d" % i for i in range(1, 7)]
        estimates, deviations = self.correct_digits("longley", self.STRD / "longley.csv",
                                                    predictors)
        self.assertGreaterEqual(estimates, 9.0)
        self.assertGreaterEqual(deviations, 9.0)


class Singular(RegressionTest):
    """Designs without full rank, and fits without a rest."""

    def test_a_copy_of_a_predictor_is_redundant(self):
        alone = self.write("alone.csv", "y,a\n1,1\n3,2\n2,3\n7,4\n")
        both = self.write("both.csv", "y,a,b\n1,1,-2\n3,2,-4\n2,3,-6\n7,4,-8\n")
        expected = self.fit(alone, "y")
        fit = self.fit(both, "y")
        self.assertEqual(fit.redundant, ["b"])
        self.assertEqual(fit.estimates["b"], 0.0)
        self.assert_close(fit.estimates["a"], expected.estimates["a"], 1e-14, "a")
        self.assertEqual(fit.quality["degreesOfFreedom"], expected.quality["degreesOfFreedom"])

    def test_a_constant_predictor_is_redundant(self):
        data = self.write("constant.csv", "y,a,c\n1,1,0.1\n3,2,0.1\n2,3,0.1\n7,4,0.1\n")
        self.assertEqual(self.fit(data, "y").redundant, ["c"])

    def test_the_order_of_the_predictors_decides(self):
        data = self.write("order.csv", "y,a,b\n1,1,2\n3,2,4\n2,3,6\n7,4,8\n")
        self.assertEqual(self.fit(data, "y", "b,a").redundant, ["a"])

    def test_small_numbers_are_not_redundant(self):
        data = self.write("small.csv", "y,a,b\n1,1e-9,1e9\n3,2e-9,4e9\n2,3e-9,9e9\n7,4e-9,2e9\n")
        fit = self.fit(data, "y")
        self.assertEqual(fit.redundant, [])
        self.assert_scores_as_predicted(data)

    def test_a_category_with_one_value_is_redundant(self):
        data = self.write("one.csv", "y,a,s\n1,1,u\n3,2,u\n2,3,u\n7,4,u\n")
        self.assertEqual(self.fit(data, "y").redundant, ["s = u"])

    def test_the_same_category_twice(self):
        data = self.write("twice.csv", "y,s,t\n1,u,U\n3,v,V\n2,w,W\n7,u,U\n5,v,V\n2,w,W\n")
        fit = self.fit(data, "y")
        self.assertEqual(fit.redundant, ["s = w", "t = U", "t = V", "t = W"])
        self.assert_scores_as_predicted(data)

    def test_as_many_coefficients_as_cases(self):
        data = self.write("saturated.csv", "y,a\n1,1\n3,2\n")
        fit = self.fit(data, "y")
        self.assertAlmostEqual(fit.estimates["a"], 2.0, 12)
        self.assertNotIn("stdError", fit.tests["a"])
        self.assertNotIn("fStatistic", fit.quality)
        self.assertIn("There are not more cases than coefficients", fit.tables)
        self.assertIn(["a", "2", ".", ".", "."], [l.split() for l in fit.tables.splitlines()])

    def test_a_single_case(self):
        data = self.write("single.csv", "y,a\n5,1\n")
        fit = self.fit(data, "y")
        self.assertEqual(fit.redundant, ["a"])
        self.assertEqual(fit.estimates["(Intercept)"], 5.0)
        self.assertNotIn("r-squared", fit.quality)

    def test_a_fit_without_a_rest(self):
        data = self.write("exact.csv", "y,a\n1,1\n2,2\n3,3\n4,4\n5,5\n")
        fit = self.fit(data, "y")
        self.assertAlmostEqual(fit.estimates["a"], 1.0, 14)
        self.assertEqual(float(fit.quality["r-squared"]), 1.0)

    def test_a_constant_target(self):
        data = self.write("flat.csv", "y,a\n0.1,1\n0.1,2\n0.1,4\n")
        fit = self.fit(data, "y")
        self.assertEqual(fit.estimates, {"(Intercept)": 0.1, "a": 0.0})
        self.assertNotIn("r-squared", fit.quality)


class Weights(RegressionTest):
    """A frequency weight means the case that many times over."""

    def weighted_penguins(self):
        lines = PENGUINS.read_text(encoding="utf-8").splitlines()
        weighted = [lines[0] + ",w"]
        weighted += ["%s,%d" % (line, number % 4) for number, line in enumerate(lines[1:], 1)]
        return self.write("weighted.csv", "\n".join(weighted) + "\n")

    def test_agrees_with_repeated_cases(self):
        fit = self.fit(self.weighted_penguins(), "body_mass_g", "flipper_length_mm,species", "w")
        for term, name, value in figures_of_r("weighted"):
            self.assert_close(fit.figure(term, name), value, 1e-10, term + " " + name)

    def test_counts(self):
        fit = self.fit(self.weighted_penguins(), "body_mass_g", "flipper_length_mm,species", "w")
        # 86 cases have weight 0; of the two incomplete ones, numbers 4 and 340, both are among them.
        self.assertEqual(fit.quality["numOfRecords"], "258")
        self.assertEqual(fit.quality["numOfRecordsWeighted"], "516")
        self.assertEqual(fit.line("Cases used").split()[-1], "258")
        self.assertEqual(fit.line("Cases dropped").split()[-1], "86")
        self.assertEqual(fit.line("their weight missing or not above 0").split()[-1], "86")
        self.assertEqual(fit.line("Sum of the weights (w)").split()[-1], "516")
        self.assertEqual(fit.univariate["species"].get("weighted"), "1")

    def test_missing_and_negative_weights_drop_the_case(self):
        plain = self.write("plain.csv", "y,a\n1,1\n3,2\n2,3\n")
        data = self.write("bad.csv", "y,a,w\n1,1,1\n9,9,\n3,2,1\n9,9,-1\n2,3,1\n9,,2\n9,9,0\n")
        expected = self.fit(plain, "y").estimates
        fit = self.fit(data, "y", "a", "w")
        self.assertEqual(fit.estimates, expected)
        self.assertEqual(fit.line("Cases dropped").split()[-1], "4")
        self.assertEqual(fit.line("their weight missing or not above 0").split()[-1], "3")

    def test_the_weight_is_a_field_but_no_input(self):
        data = self.write("w.csv", "y,a,w\n1,1,1\n3,2,1.5\n2,3,2\n")
        self.fit(data, "y", None, "w")
        scorer = RegressionScorer(self.document)
        self.assertEqual(scorer.inputs, ["a"])
        self.assertIn('<MiningField name="w" usageType="frequencyWeight"/>',
                      self.document.read_text(encoding="utf-8"))

    def test_weights_that_sum_up_to_less_than_two_cases(self):
        data = self.write("light.csv", "y,a,w\n1,1,0.5\n3,2,0.5\n2,3,0.5\n")
        fit = self.fit(data, "y", None, "w")
        info = fit.univariate["a"].find(NAMESPACE + "NumericInfo").attrib
        self.assertNotIn("standardDeviation", info)
        self.assertIn("There are not more cases than coefficients", fit.tables)

    def test_categories_of_dropped_cases_do_not_exist(self):
        data = self.write("cats.csv", "y,s,w\n1,u,1\n2,x,0\n,z,1\n3,v,1\n2,u,1\n5,v,1\n")
        self.fit(data, "y", "s", "w")
        self.assertEqual(RegressionScorer(self.document).valid_values("s"), ["u", "v"])


class CsvForms(RegressionTest):
    """The forms in which a CSV file may come."""

    PLAIN = "y,a,s\n1,1,u\n3,2,v\n2,3,u\n7,4,v\n4,6,v\n"

    def assert_same_fit(self, data, **options):
        fit = self.fit(data, "y", **options)
        estimates = fit.estimates
        expected = self.fit(self.write("plain.csv", self.PLAIN), "y").estimates
        self.assertEqual(estimates, expected)

    def test_line_ends_of_windows(self):
        self.assert_same_fit(self.write("crlf.csv", self.PLAIN.replace("\n", "\r\n")))

    def test_no_line_end_at_the_end(self):
        self.assert_same_fit(self.write("cut.csv", self.PLAIN[:-1]))

    def test_empty_lines(self):
        self.assert_same_fit(self.write("empty.csv", self.PLAIN.replace("\n", "\n\n")))

    def test_byte_order_mark(self):
        self.assert_same_fit(self.write("bom.csv", "\ufeff" + self.PLAIN))

    def test_blanks_around_cells(self):
        self.assert_same_fit(self.write("blanks.csv", self.PLAIN.replace(",", " , ")))

    def test_quoted_cells(self):
        quoted = "\n".join(",".join('"%s"' % cell for cell in line.split(","))
                           for line in self.PLAIN.split("\n")[:-1]) + "\n"
        self.assert_same_fit(self.write("quoted.csv", quoted))

    def test_signs_and_exponents(self):
        self.assert_same_fit(self.write("signs.csv", "y,a,s\n+1,1.0,u\n3e0,2,v\n.2e1,3,u\n7,4,v\n"
                                                     "40E-1,6.,v\n"))

    def test_a_pipe(self):
        read, write = os.pipe()
        os.write(write, self.PLAIN.encode())
        os.close(write)
        with os.fdopen(read) as data:
            run = self.run_program("/dev/stdin", "--target", "y", "--pmml", self.document,
                                   stdin=data)
        self.assertEqual((run.returncode, run.stderr), (0, ""))

    def test_categories_and_names_of_every_kind(self):
        data = self.directory / "kinds.csv"
        categories = ["x,y", 'say "no"', "<a>&b", "caf\u00e9", "\u65e5\u672c", "two  blanks",
                      "end ", " start", "a\nb", "7"]
        with open(data, "w", encoding="utf-8", newline="") as file:
            writer = csv.writer(file, quoting=csv.QUOTE_ALL)
            writer.writerow(["y", "gr\u00f6\u00dfe", "a & b, <c>"])
            for i, category in enumerate(categories * 3):
                writer.writerow([i * i % 17, i % 5, category])
        self.fit(data, "y")
        scorer = RegressionScorer(self.document)
        self.assertEqual(scorer.inputs, ["gr\u00f6\u00dfe", "a & b, <c>"])
        self.assertEqual(scorer.valid_values("a & b, <c>"), categories)
        self.assertEqual(self.assert_scores_as_predicted(data), 30)

    def test_the_first_value_decides_what_a_column_is(self):
        data = self.write("mixed.csv", "y,s\n1,\n2,b7\n3,7\n5,b7\n4,7\n")
        self.fit(data, "y")
        self.assertEqual(RegressionScorer(self.document).valid_values("s"), ["b7", "7"])

    def test_columns_that_take_no_part_may_hold_anything(self):
        data = self.write("other.csv", "y,a,z\n1,1,2\n3,2,x\n2,3,\n")
        fit = self.fit(data, "y", "a")
        self.assertEqual(fit.quality["numOfRecords"], "3")


class BadInput(RegressionTest):
    """One clear line, exit status 2, and nothing overwritten."""

    DATA = "y,a,s\n1,1,u\n3,2,v\n2,3,u\n"

    def assert_refused(self, *arguments, told=(), **options):
        self.document.write_text("old document")
        self.predictions.write_text("old predictions")
        before = sorted(p.name for p in self.directory.iterdir())
        run = self.run_program(*arguments, **options)
        self.assertEqual(run.returncode, 2, run.stderr)
        self.assertEqual(run.stdout or "", "")
        self.assertRegex(run.stderr, r"\Aregression: [^\n]+\n\Z")
        for text in told:
            self.assertIn(text, run.stderr)
        self.assertEqual(self.document.read_text(), "old document")
        self.assertEqual(self.predictions.read_text(), "old predictions")
        self.assertEqual(sorted(p.name for p in self.directory.iterdir()), before)

    def refuse(self, data, *arguments, told=(), target="y"):
        self.assert_refused(data, "--target", target, *arguments, "--pmml", self.document,
                            "--predictions", self.predictions, told=told)

    def test_no_such_file(self):
        self.refuse("absent.csv", told=["absent.csv", "No such file"])

    def test_a_directory(self):
        self.refuse(self.directory, told=["directory"])

    def test_an_empty_file(self):
        self.refuse(self.write("d.csv", ""), told=["first line"])

    def test_only_a_header(self):
        self.refuse(self.write("d.csv", "y,a\n"), told=["no case"])

    def test_no_complete_case(self):
        self.refuse(self.write("d.csv", "y,a\n1,\n,2\n"), told=["no case"])

    def test_no_case_with_a_weight(self):
        self.refuse(self.write("d.csv", "y,a,w\n1,1,0\n2,2,\n"), "--weight", "w", told=["no case"])

    def test_no_predictor(self):
        self.refuse(self.write("d.csv", "y\n1\n2\n"), told=["predictor"])

    def test_unknown_columns(self):
        data = self.write("d.csv", self.DATA)
        self.refuse(data, target="nothing", told=["'nothing'"])
        self.refuse(data, "--predictors", "a,missing", told=["'missing'"])
        self.refuse(data, "--weight", "heavy", told=["'heavy'"])

    def test_a_column_asked_for_twice(self):
        data = self.write("d.csv", self.DATA)
        self.refuse(data, "--predictors", "a,a", told=["'a'", "twice"])
        self.refuse(data, "--predictors", "a,y", told=["'y'", "twice"])
        self.refuse(data, "--predictors", "a", "--weight", "a", told=["'a'", "twice"])

    def test_a_column_that_stands_there_twice(self):
        self.refuse(self.write("d.csv", "y,a,a\n1,2,3\n"), "--predictors", "a",
                    told=["more than one", "'a'"])

    def test_a_text_in_a_numeric_predictor(self):
        self.refuse(self.write("d.csv", "y,a\n1,1\n2,abc\n"), told=["case 2", "'a'", "'abc'"])

    def test_a_text_in_the_target(self):
        self.refuse(self.write("d.csv", "y,a\n1,1\nabc,2\n"), told=["case 2", "'y'", "'abc'"])

    def test_a_text_in_a_case_that_is_dropped(self):
        self.refuse(self.write("d.csv", "y,a,b\n1,1,1\n,2,abc\n"), told=["case 2", "'b'", "'abc'"])

    def test_a_text_in_the_weight(self):
        self.refuse(self.write("d.csv", "y,a,w\n1,1,1\n2,2,heavy\n"), "--weight", "w",
                    told=["'w'", "'heavy'"])

    def test_a_category_as_target(self):
        self.refuse(self.write("d.csv", self.DATA), "--predictors", "a", target="s",
                    told=["'s'", "'u'", "not a number"])

    def test_words_that_look_like_numbers(self):
        for word in ("nan", "inf", "-inf", "1e999", "0x10", "1,5", "1 2", "--1"):
            with self.subTest(word):
                self.refuse(self.write("d.csv", 'y,a\n1,1\n2,"%s"\n' % word), told=[word])

    def test_numbers_too_large_to_be_squared(self):
        self.refuse(self.write("d.csv", "y,a\n1,1e200\n2,-1e200\n3,5\n"), told=["'a'", "too large"])

    def test_cases_of_another_length(self):
        self.refuse(self.write("d.csv", "y,a\n1,1\n2\n"), told=["case 2", "1 cells"])
        self.refuse(self.write("d.csv", "y,a\n1,1,1\n2,2\n"), told=["case 1", "3 cells"])

    def test_broken_quotes(self):
        self.refuse(self.write("d.csv", 'y,a\n1,1\n2,"2\n'), told=["quote"])
        self.refuse(self.write("d.csv", 'y,a\n1,1\n2,2"3"\n'), told=["quote"])

    def test_output_in_no_directory(self):
        data = self.write("d.csv", self.DATA)
        for option in ("--pmml", "--predictions"):
            wanted = self.directory / "absent" / "file"
            self.assert_refused(data, "--target", "y", option, wanted, told=[str(wanted)])

    def test_output_that_is_a_directory(self):
        data = self.write("d.csv", self.DATA)
        self.assert_refused(data, "--target", "y", "--pmml", self.directory,
                            told=[str(self.directory)])

    def test_output_that_cannot_take_the_bytes(self):
        data = self.write("d.csv", self.DATA)
        run = self.run_program(data, "--target", "y", "--pmml", "/dev/full", "--predictions",
                               self.predictions)
        self.assertEqual(run.returncode, 2)
        self.assertRegex(run.stderr, r"\Aregression: cannot write /dev/full[^\n]*\n\Z")
        self.assertFalse(self.predictions.exists())

    def test_standard_output_that_cannot_take_the_bytes(self):
        data = self.write("d.csv", self.DATA)
        with open("/dev/full", "w") as full:
            run = subprocess.run([PROGRAM, data, "--target", "y", "--pmml", self.document],
                                 stdout=full, stderr=subprocess.PIPE, encoding="utf-8")
        self.assertEqual(run.returncode, 2)
        self.assertRegex(run.stderr, r"\Aregression: [^\n]*standard output\n\Z")
        self.assertFalse(self.document.exists())

    def test_output_over_the_data(self):
        data = self.write("d.csv", self.DATA)
        self.assert_refused(data, "--target", "y", "--pmml", data, told=["it is the data"])
        self.assertEqual(data.read_text(), self.DATA)

    def test_two_outputs_in_one_file(self):
        data = self.write("d.csv", self.DATA)
        both = self.directory / "both"
        self.assert_refused(data, "--target", "y", "--pmml", both, "--predictions", both,
                            told=["both"])

    def test_command_lines_without_sense(self):
        data = self.write("d.csv", self.DATA)
        self.assert_refused(told=["DATA.csv"])
        self.assert_refused(data, told=["--target"])
        self.assert_refused(data, "--target", "y", "--unknown", told=["--unknown"])
        self.assert_refused(data, "more.csv", "--target", "y", told=["more.csv"])
        self.assert_refused(data, "--target", "y", "--pmml", told=["--pmml"])


class Interruption(RegressionTest):
    """Ctrl-C ends the work; no file is left half-written."""

    def interrupt(self, with_signal):
        data = self.directory / "data.csv"
        os.mkfifo(data)
        self.document.write_text("old document")
        program = subprocess.Popen([PROGRAM, data, "--target", "y", "--pmml", self.document,
                                    "--predictions", self.predictions],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   encoding="utf-8")
        with open(data, "w") as pipe:  # opens when the program reads
            pipe.write("y,a\n" + "1,1\n2,3\n3,2\n" * 10000)
            pipe.flush()
            self.assertEqual(len(list(self.directory.glob("*.part-*"))), 2)
            while program.poll() is None:  # a signal between the question and the read needs a second
                program.send_signal(with_signal)
                time.sleep(0.05)
        output, error = program.communicate(timeout=60)
        self.assertEqual((program.returncode, output, error), (130, "", "regression: stopped\n"))
        self.assertEqual(self.document.read_text(), "old document")
        self.assertEqual(sorted(p.name for p in self.directory.iterdir()),
                         ["data.csv", "model.pmml"])

    def test_sigint(self):
        self.interrupt(signal.SIGINT)

    def test_sigterm(self):
        self.interrupt(signal.SIGTERM)


class Terminal(RegressionTest):
    """The progress line of long work."""

    def run_slowly(self, **options):
        data = self.directory / "data.csv"
        os.mkfifo(data)

        def feed():
            with open(data, "w") as pipe:
                pipe.write("y,a\n")
                for i in range(16):
                    pipe.write("%d,%d\n" % (i * i, i))
                    pipe.flush()
                    time.sleep(0.1)

        feeder = threading.Thread(target=feed)
        feeder.start()
        run = subprocess.run([PROGRAM, data, "--target", "y"], stdout=subprocess.PIPE,
                             timeout=60, **options)
        feeder.join()
        self.assertEqual(run.returncode, 0)
        return run

    def test_shows_progress_and_wipes_it_out(self):
        ours, theirs = pty.openpty()
        self.run_slowly(stderr=theirs)
        os.close(theirs)
        shown = b""
        try:
            while chunk := os.read(ours, 4096):
                shown += chunk
        except OSError:  # how a terminal whose other end is closed ends
            pass
        os.close(ours)
        self.assertIn(b"\rReading ", shown)
        self.assertTrue(shown.endswith(b"\r\x1b[K"), shown)
        self.assertNotIn(b"\n", shown)

    def test_is_silent_without_a_terminal(self):
        self.assertEqual(self.run_slowly(stderr=subprocess.PIPE).stderr, b"")


if __name__ == "__main__":
    unittest.main()
