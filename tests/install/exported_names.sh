#!/usr/bin/env bash
# The libraries export the names of their own namespaces and classes and nothing of what they are built with:
# exported_names.sh VELLARI_LIBRARY HOST_KIT_LIBRARY [GRIDS_LIBRARY]
set -euo pipefail

status=0
foreign='^_Z(T[VTIS]|T[hv]n?[0-9_n]*_|GV|GVZ|Z)?(N?K?[OR]?S[a-z_0-9]|NK?[OR]?9__gnu_cxx)'
foreign+='|[0-9](pugi|xml_|Eigen|CLI)|z_stream|_GLOBAL__N'
# check LIBRARY ALLOWED REQUIRED: all demangled names match ALLOWED, and one of them REQUIRED
check() {
    local names strange
    names=$(nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //')
    strange=$(grep -Ev "$2" <<<"$names" || true)
    if [ -n "$strange" ]; then
        printf '%s exports names that are not its own:\n%s\n' "$1" "$(head -20 <<<"$strange")"
        status=1
    fi
    # Demangled, an instance of a foreign template can begin with a result type of ours; mangled, it can't.
    strange=$(nm -D --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //' | grep -E "$foreign" || true)
    if [ -n "$strange" ]; then
        printf '%s exports names of what it is built with:\n%s\n' "$1" "$(head -20 <<<"$strange" | c++filt)"
        status=1
    fi
    if ! grep -Eq "$3" <<<"$names"; then
        printf '%s exports nothing that matches %s\n' "$1" "$3"
        status=1
    fi
}

record='(vtable for |VTT for |typeinfo for |typeinfo name for |guard variable for |(non-)?virtual thunk to )?'
# The result type of a template's instance stands before its name.
result='([A-Za-z_][A-Za-z_0-9:<>, ]*[*&]* )?'
check "$1" "^(${record}${result}KvRefSystem::|Init_Vellari$|Deinit_Vellari$)" '^Init_Vellari$'
globals='TKv[A-Za-z_]*|TBaseGrid[A-Za-z_]*|vec_t_<'
functions='LoadResString|KvPrintDbgMsg|CalcSignedFigureArea'
hooks='(Init|Deinit)_(QorDataUtils|LumMath)$|GlobalOT$|KvApplication$'
check "$2" "^(${record}${result}((VellariHostKit|LumCommonUtils|Orvane|var_a_legacy)::|${globals})|${functions}|${hooks})" \
    '^Init_LumMath$'
if [ -n "${3-}" ]; then
    check "$3" "^${record}VellariHostKit::TGeoidGrid(::|$)" '::TGeoidGrid\('
fi
exit $status
