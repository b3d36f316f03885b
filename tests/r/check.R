# check.R FOLDER: whether R reads all files of episodes as they are described, and takes their times.
library(survival)

folder <- commandArgs(trailingOnly = TRUE)[1]
taken <- function(name) {
  read.csv(file.path(folder, paste0(name, ".csv")), encoding = "UTF-8", na.strings = "", stringsAsFactors = FALSE)
}

dictionary <- taken("dicionario")
for (name in unique(dictionary$file)) {
  data <- taken(name)
  told <- dictionary[dictionary$file == name, ]
  stopifnot(identical(names(data), told$column), nrow(data) > 0)
  for (i in seq_len(nrow(told))) {
    cells <- data[[told$column[i]]]
    cells <- cells[!is.na(cells)]
    if (told$type[i] %in% c("integer", "number", "boolean")) stopifnot(is.numeric(cells) || length(cells) == 0)
    if (told$type[i] == "date") stopifnot(!anyNA(as.Date(cells, format = "%Y-%m-%d")))
    if (!is.na(told$words[i])) stopifnot(cells %in% strsplit(told$words[i], " ")[[1]])
  }
}

# Surv() warns of a spell without length and takes nothing of it.
options(warn = 2)
times <- list(fecundidade = c("age_enter", "age_exit"), mortalidade_infancia = c("enter", "exit"),
              mortalidade_adultos = c("enter", "exit"), nupcialidade = c("enter", "exit"),
              recasamento = c("enter", "exit"))
for (name in names(times)) {
  data <- taken(name)
  life <- Surv(data[[times[[name]][1]]], data[[times[[name]][2]]], data$event)
  stopifnot(!anyNA(life), sum(data$event) > 0)
  whole <- summary(survfit(life ~ 1))
  stopifnot(sum(whole$n.event) == sum(data$event))
  # Ages are of calendar years, so that a year of the sum is a year of the days.
  years <- sum(data[[times[[name]][2]]] - data[[times[[name]][1]]])
  stopifnot(abs(years / (sum(data$days) / 365.25) - 1) < 0.005)
}
intervals <- taken("fecundidade")
stopifnot(!anyNA(Surv(intervals$since_enter, intervals$since_exit, intervals$event)))
joined <- merge(taken("mortalidade_infancia"), taken("familias"), by = "family")
stopifnot(nrow(joined) > 0)
cat("R has read", length(unique(dictionary$file)), "files.\n")
