# Two commands set up a fresh Debian 12 machine:
#   make run   installs the packages, builds and starts Vendrix on a demo shop
#   make test  installs the packages, builds with sanitizers and runs every test
.PHONY: all deps build run test bench clean

BUILD      ?= build
TEST_BUILD ?= build-test
DEMO       ?= $(BUILD)/demo
JOBS       ?= $(shell nproc)

all: build

deps:
	bash scripts/install-deps.sh

build: deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVENDRIX_TESTS=OFF
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ ! -f $(DEMO)/Config.vdrx ] && [ ! -f $(DEMO)/Vendrix.install ]; then \
	  $(BUILD)/src/app/vendrix-cli demo --carpeta $(DEMO); \
	fi
	$(BUILD)/src/app/vendrix-cli verificar --carpeta $(DEMO)

test: deps
	cmake -S . -B $(TEST_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVENDRIX_SANITIZE=ON -DVENDRIX_BENCH=OFF
	cmake --build $(TEST_BUILD) -j $(JOBS)
	cd $(TEST_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	rm -rf $(BUILD) $(TEST_BUILD)
