#!/usr/bin/python3
"""Reads and writes a DXF file with ezdxf; prints "key value" lines for dxf_bench."""
import argparse
import gc
import resource
import sys
import time
import tracemalloc

import ezdxf


def peak_rss_kb():
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("drawing")
    parser.add_argument("output")
    parser.add_argument("--tracemalloc", action="store_true",
                        help="read once more under tracemalloc for the Python heap's peak (slow)")
    args = parser.parse_args()

    base = peak_rss_kb()
    start = time.perf_counter()
    doc = ezdxf.readfile(args.drawing)
    read_s = time.perf_counter() - start
    after_read = peak_rss_kb()
    entities = len(doc.modelspace())

    start = time.perf_counter()
    doc.saveas(args.output)
    write_s = time.perf_counter() - start

    print(f"read_s {read_s:.6f}")
    print(f"write_s {write_s:.6f}")
    print(f"entities {entities}")
    print(f"base_rss_kb {base}")
    print(f"read_peak_rss_kb {after_read}")
    print(f"peak_rss_kb {peak_rss_kb()}")

    if args.tracemalloc:
        del doc
        gc.collect()
        tracemalloc.start()
        doc = ezdxf.readfile(args.drawing)
        print(f"tracemalloc_peak_bytes {tracemalloc.get_traced_memory()[1]}")
        tracemalloc.stop()
    sys.stdout.flush()


if __name__ == "__main__":
    main()
