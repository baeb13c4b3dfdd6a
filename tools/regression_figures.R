# Writes tests/data/regression_figures.csv: what R's lm says of the penguins, for the tests of
# examples/regression.      Rscript tools/regression_figures.R > tests/data/regression_figures.csv
#
# lm is made to leave out the category that the program finds redundant: the last one in the order
# in which complete cases show them. A frequency weight means the case that many times over.

penguins <- read.csv("examples/data/penguins.csv", na.strings = "", stringsAsFactors = FALSE)

figures <- function(name, data, target, predictors) {
  data <- data[complete.cases(data[c(target, predictors)]), ]
  for (p in predictors) if (is.character(data[[p]])) {
    levels <- unique(data[[p]])
    data[[p]] <- factor(data[[p]], levels = levels)
    contrasts(data[[p]]) <- contr.treatment(levels, base = length(levels))
  }
  fit <- lm(reformulate(predictors, target), data)
  s <- summary(fit)
  terms <- rownames(s$coefficients)
  for (p in predictors) if (is.factor(data[[p]])) {
    ours <- startsWith(terms, p)
    terms[ours] <- paste(p, "=", substring(terms[ours], nchar(p) + 1))
  }
  row <- function(figure, value) cat(sprintf("%s,%s,%.17g\n", name, figure, value))
  for (i in seq_along(terms)) {
    row(paste0(terms[i], ",estimate"), s$coefficients[i, 1])
    row(paste0(terms[i], ",std_error"), s$coefficients[i, 2])
    row(paste0(terms[i], ",t"), s$coefficients[i, 3])
    row(paste0(terms[i], ",p"), s$coefficients[i, 4])
  }
  row("(model),r_squared", s$r.squared)
  row("(model),adj_r_squared", s$adj.r.squared)
  row("(model),sse", sum(fit$residuals^2))
  row("(model),residual_df", fit$df.residual)
  row("(model),f", s$fstatistic[[1]])
  row("(model),cases", nrow(data))
}

cat("case,term,figure,value\n")
figures("demo", penguins, "body_mass_g",
        c("flipper_length_mm", "bill_length_mm", "species", "sex"))
figures("numbers", penguins, "bill_depth_mm", c("bill_length_mm", "body_mass_g"))
figures("category", penguins, "body_mass_g", "island")

# The weight of a case is the remainder of its number by 4; weight 0 leaves the case out.
weight <- seq_len(nrow(penguins)) %% 4
figures("weighted", penguins[rep(seq_len(nrow(penguins)), weight), ], "body_mass_g",
        c("flipper_length_mm", "species"))
