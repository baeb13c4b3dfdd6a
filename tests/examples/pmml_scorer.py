"""A reader of PMML regression models, written from the standard alone.

It knows nothing of the program that wrote the document: it takes the fields from the data
dictionary, the inputs from the mining schema, and adds up the terms of the regression table.
"""

import xml.etree.ElementTree as ElementTree

NAMESPACE = "{http://www.dmg.org/PMML-4_3}"


class RegressionScorer:
    def __init__(self, path):
        root = ElementTree.parse(path).getroot()
        if root.tag != NAMESPACE + "PMML" or root.get("version") != "4.3":
            raise ValueError("no PMML 4.3: " + root.tag)
        self.fields = {f.get("name"): f for f in self._all(root, "DataDictionary/DataField")}
        model = self._all(root, "RegressionModel")[0]
        if model.get("functionName") != "regression":
            raise ValueError("no regression")
        usage = {f.get("name"): f.get("usageType", "active")
                 for f in self._all(model, "MiningSchema/MiningField")}
        self.target = next(name for name, use in usage.items() if use == "target")
        self.inputs = [name for name, use in usage.items() if use == "active"]
        table = self._all(model, "RegressionTable")[0]
        self.intercept = float(table.get("intercept"))
        self.numeric = [(p.get("name"), int(p.get("exponent", "1")), float(p.get("coefficient")))
                        for p in self._all(table, "NumericPredictor")]
        self.categorical = [(p.get("name"), p.get("value"), float(p.get("coefficient")))
                            for p in self._all(table, "CategoricalPredictor")]

    @staticmethod
    def _all(element, path):
        return element.findall("/".join(NAMESPACE + step for step in path.split("/")))

    def valid_values(self, field):
        return [v.get("value") for v in self._all(self.fields[field], "Value")
                if v.get("property", "valid") == "valid"]

    def score(self, case):
        """The prediction for a dictionary of texts; None when an input is missing."""
        for name in self.inputs:
            if case[name] == "":
                return None
            if self.fields[name].get("optype") == "categorical":
                if case[name] not in self.valid_values(name):
                    raise ValueError("invalid category %r of %s" % (case[name], name))
        sum_of_terms = self.intercept
        for name, exponent, coefficient in self.numeric:
            sum_of_terms += coefficient * float(case[name]) ** exponent
        for name, value, coefficient in self.categorical:
            if case[name] == value:
                sum_of_terms += coefficient
        return sum_of_terms
