# Top-level entry points. Every target installs what it needs first (make deps).
BUILD_DIR ?= build
BUILD_TYPE ?= Release
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=

# Debian packages the project builds, tests and benchmarks with.
PACKAGES := g++ cmake ninja-build ccache pkg-config python3 python3-ezdxf \
  libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev \
  clang libclang-rt-14-dev libdxflib-dev libmuparser-dev \
  libtinyxml2-dev libopencc-dev libfreetype-dev fonts-dejavu-core \
  libocct-foundation-dev libocct-modeling-data-dev libocct-modeling-algorithms-dev \
  libocct-visualization-dev libtbb-dev

.PHONY: deps configure build test demo bench fuzz clean

deps:
	@missing=$$(for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}\n' $$p 2>/dev/null | grep -q 'install ok installed' || echo $$p; done); \
	if [ -n "$$missing" ]; then \
	  echo "Installing:" $$missing; \
	  SUDO=$$( [ "$$(id -u)" = 0 ] || echo sudo ); \
	  $$SUDO env DEBIAN_FRONTEND=noninteractive apt-get update -qq && \
	  $$SUDO env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing; \
	fi

$(BUILD_DIR)/build.ninja: CMakeLists.txt | deps
	cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_FLAGS)

configure: deps $(BUILD_DIR)/build.ninja

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

demo: build
	./examples/demo.sh $(BUILD_DIR)/bin/korva

bench: build
	./bench/run.sh $(BUILD_DIR)

fuzz: deps
	cmake -S . -B $(BUILD_DIR)-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCMAKE_CXX_COMPILER=clang++ -DKORVA_FUZZ=ON
	cmake --build $(BUILD_DIR)-fuzz -j $(JOBS) --target fuzz_dxf_reader
	./tests/fuzz/run.sh $(BUILD_DIR)-fuzz

clean:
	rm -rf $(BUILD_DIR) $(BUILD_DIR)-fuzz
