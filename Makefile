# The commands of daily work. Each sets up what it needs, so all of them work in a fresh clone on Debian 12.
.DEFAULT_GOAL := help
SHELL := /bin/bash

# `make SETUP=: ...` leaves the installing out, on a system that the installer does not know.
SETUP := tools/setup.sh

release := build/release
program := $(release)/apps/orvex-report/orvex-report
desktop := $(release)/apps/orvex/orvex
sample := $(release)/samples/client1.mdb
reference := $(release)/data/tankdata.mdb

# How long `make fuzz` tries each reader.
FUZZ_SECONDS := 300

# What `make batch` asks of the program.
ARGS := --list

.PHONY: help build report pictures run batch test bench format lint coverage fuzz clean

help: ## Print this list
	@awk -F ':.*## ' '/^[a-z]+:.*## / {printf "  make %-10s %s\n", $$1, $$2}' $(MAKEFILE_LIST)

# A build folder that only this target made leaves the tests out, so that it needs none of their packages.
build: ## Build the programs, the databases, the display pages and the help into build/release
	@$(SETUP) build
	@test -f $(release)/build.ninja || cmake --preset release -DORVEX_TESTS=OFF -DORVEX_BENCH=OFF >/dev/null
	@cmake --build --preset release --target programs databases display help-file

report: build ## Compute the sample inventory: losses of each tank, and all reports and PDFs in build/release/report
	@tools/report.sh $(program) $(reference) $(sample) $(release)/report

# The windows are drawn on no display, over copies of the delivered databases.
pictures: report ## Make the pictures of reports and windows in docs/pictures and docs/windows anew
	@$(SETUP) pictures test
	@tools/pictures.sh $(release)/report docs/pictures
	@cmake --preset release >/dev/null
	@cmake --build --preset release --target window_pictures
	@$(release)/tools/window_pictures $(reference) $(sample) docs/windows

# Its files and settings are kept in the build folder, apart from a person's own.
run: build ## Open the desktop program on the sample inventory, with folders of its own in build/release/run
	@mkdir -p $(release)/run/data/orvex
	@test -e $(release)/run/data/orvex/client1.mdb || cp $(sample) $(release)/run/data/orvex/client1.mdb
	@XDG_DATA_HOME=$(abspath $(release)/run/data) XDG_CONFIG_HOME=$(abspath $(release)/run/config) $(desktop)

batch: build ## Run the program without windows on a copy of the sample inventory, with ARGS="..." (as it stands: --list)
	@mkdir -p $(release)/run
	@cp $(sample) $(release)/run/client1.mdb
	@$(program) --client $(release)/run/client1.mdb --reference $(reference) --out $(release)/run $(ARGS)

test: ## All that a change must pass: both compilers, sanitizers, decimal comma, format, lint
	@$(SETUP) build test browser clang lint
	@tools/test.sh

bench: ## Time calculation runs, with options BENCH="..." (--help names them)
	@$(SETUP) build test
	@cmake --preset release >/dev/null
	@cmake --build --preset release --target orvex-bench orvex-window-bench databases
	@mkdir -p $(release)/bench/run
	@$(release)/bench/orvex-bench --reference $(reference) --folder $(release)/bench/run $(BENCH)
	@$(release)/bench/orvex-window-bench $(reference) $(release)/bench/run

format: ## Format the C++ files in place
	@$(SETUP) lint
	@tools/format.sh

lint: ## Run clang-tidy and shellcheck
	@$(SETUP) build test clang lint
	@cmake --preset clang >/dev/null
	@tools/lint.sh build/clang

coverage: ## Run the suite with line coverage; fails below 95 % in src/emission or src/store
	@$(SETUP) build test coverage
	@tools/coverage.sh

# The corpus that it starts from is replayed by every `make test`.
fuzz: ## Feed the readers of files with hostile ones, each for FUZZ_SECONDS (as it stands: 300)
	@$(SETUP) build clang
	@tools/fuzz.sh $(FUZZ_SECONDS)

clean: ## Remove build/
	rm -rf build
