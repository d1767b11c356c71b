# Sourced by setup.sh and test.sh for --sanitize: any report fails the program that
# caused it, the build's own tools included. Qt's platform plugin and font leaks
# are suppressed by tests/lsan.supp, which needs whole allocation stacks to tell them
# from ours (fast_unwind_on_malloc=0 stops at the first Qt frame without a frame pointer).
export ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0:halt_on_error=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
