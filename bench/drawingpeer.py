"""Times ezdxf on a drawing, warm and in process: drawingpeer.py FILE TIMES

Prints seconds of processor time, the best reading first, then the best writing."""

import gc
import sys
import time

import ezdxf


def best(times, work):
    """The first run warms up and doesn't count."""
    seconds = []
    for _ in range(times + 1):
        gc.collect()
        start = time.process_time()
        kept = work()
        seconds.append(time.process_time() - start)
        del kept
    return min(seconds[1:])


def main(path, times):
    print(best(times, lambda: ezdxf.readfile(path)))
    document = ezdxf.readfile(path)
    print(best(times, lambda: document.saveas(path + ".peer.dxf")))


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]))
