# Two commands set up a fresh Debian 12 machine:
#   make run   installs the packages, builds and starts Vendrix on a demo shop
#   make test  installs the packages, builds with sanitizers and runs every test
# Development and test builds treat warnings as errors; `make bench` measures
# a Release build of its own.
.PHONY: all deps build run install test bench clean

BUILD       ?= build
TEST_BUILD  ?= build-test
BENCH_BUILD ?= build-rel
DEMO        ?= $(BUILD)/demo
JOBS        ?= $(shell nproc)
PREFIX      ?= /usr/local

all: build

deps:
	bash scripts/install-deps.sh

build: deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVENDRIX_TESTS=OFF \
	  -DVENDRIX_BENCH=OFF -DVENDRIX_WERROR=ON
	cmake --build $(BUILD) -j $(JOBS)

# The demo shop is made once, on the first run; later runs keep its data.
# Without a screen, the program runs on a virtual one (Xvfb).
run: build
	@if [ ! -f $(DEMO)/Vendrix.install ] && [ ! -f $(DEMO)/Vendrix.vdrxdb ]; then \
	  $(BUILD)/src/app/vendrix-cli demo --carpeta $(DEMO) --articulos 300000; \
	fi
	@if [ -z "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  echo "No hay pantalla: Vendrix se abre en una pantalla virtual (Xvfb)."; \
	  xvfb-run -a -s "-screen 0 1280x720x24" $(BUILD)/src/app/vendrix --carpeta $(DEMO); \
	else \
	  $(BUILD)/src/app/vendrix --carpeta $(DEMO); \
	fi

# Installs the program, its seeds, the desktop entry and the .vdrxdb type.
# The prefix is set at configure time: the desktop entry names the program's path.
install: build
	cmake -S . -B $(BUILD) -DCMAKE_INSTALL_PREFIX=$(PREFIX)
	cmake --build $(BUILD) -j $(JOBS)
	cmake --install $(BUILD)

test: deps
	cmake -S . -B $(TEST_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVENDRIX_SANITIZE=ON -DVENDRIX_BENCH=OFF \
	  -DVENDRIX_WERROR=ON
	cmake --build $(TEST_BUILD) -j $(JOBS)
	cd $(TEST_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

# Speed is measured on the optimised build that users get, not a debug one.
# The search and price-file goals end the run as one table, at 300 000 and
# 1 000 000 articles, with the full scan beside the search.
bench: deps
	cmake -S . -B $(BENCH_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Release -DVENDRIX_TESTS=OFF \
	  -DVENDRIX_BENCH=ON
	cmake --build $(BENCH_BUILD) -j $(JOBS)
	@for b in $(BENCH_BUILD)/bench/bench_*; do \
	  case "$$b" in */bench_search|*/bench_keystroke|*/bench_startup|*/bench_pricelist_build) continue;; esac; \
	  [ -x "$$b" ] && "$$b"; \
	done
	@bash bench/goals_table.sh $(BENCH_BUILD)

clean:
	rm -rf $(BUILD) $(TEST_BUILD) $(BENCH_BUILD)
