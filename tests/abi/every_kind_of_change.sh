#!/usr/bin/env bash
# The comparison with the baseline can fail: a small library is changed in every way that breaks a
# host or adds to it, and tools/abi tells each: every_kind_of_change.sh TOOL COMPILER FLAG...
set -euo pipefail

tool=$1
compiler=$2
shift 2
flags=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    printf 'every_kind_of_change: %s\n' "$*" >&2
    exit 1
}

cat >"$work/before.cpp" <<'SOURCE'
struct TKind {
    virtual ~TKind();
    virtual int Number() const;
};
struct TBase {
    virtual ~TBase();
    virtual double First(double) const;
    virtual double Second(double) const;
};
enum TAxis { North, East };
struct TPart {
    int Count;
};
struct TShape : TBase {
    double Easting;
    double Northing;
    TPart* Part;
    void Set(TAxis axis, double value);
protected:
    int hidden;
};
TKind::~TKind() = default;
TBase::~TBase() = default;
int TKind::Number() const { return 1; }
double TBase::First(double x) const { return x; }
double TBase::Second(double x) const { return x; }
void TShape::Set(TAxis axis, double value) { (axis == North ? Northing : Easting) = value; }
double Published(TShape const& shape) { return shape.Easting; }
int Level = 3;
SOURCE

# describe NAME
describe() {
    "$compiler" -std=c++20 "${flags[@]}" -fPIC -shared "$work/$1.cpp" -o "$work/$1.so"
    "$tool" --describe "$work/$1.so" "$work/$1.abi"
}

describe before
cp "$work/before.cpp" "$work/same.cpp"
describe same
"$tool" --compare "$work/before.abi" "$work/same.abi" >/dev/null || fail 'a library differs from itself'

# change | as an edit of the source | what the report says of it
kinds=$(cat <<'ROWS'
two members change places|s/Easting;/X;/; s/Northing;/Easting;/; s/X;/Northing;/|offset changed from 64 to 128
a member moves|s/TPart\* Part;//; s/double Easting;/TPart* Part; &/|offset changed from 192 to 64
a member takes a gap|s/int hidden;/& int more;/|1 data member insertion
a member is renamed|s/int hidden;/int secret;/|hidden
a member has another type|s/TPart\* Part;/TKind* Part;/|type name changed from 'TPart' to 'TKind'
a member is hidden|s/protected:/private:/|access changed
the size grows|s/int hidden;/& double more;/|size changed from 320 to 384
a part of it grows|s/int Count;/& int Other;/|size changed from 32 to 64
another base|s/TShape : TBase/TShape : TKind/|base class insertion
a second base|s/TShape : TBase/&, TKind/|base class insertion
no base|s/TShape : TBase/TShape/|base class deletion
a virtual slot is inserted|s/virtual double Second/virtual void Between() {} &/|Second.* from 3 to 4
a virtual slot is appended|s/Second(double) const;/& virtual void Last() {}/|adds a new entry to the vtable
virtual slots change places|s/e First(/X/; s/e Second/e First/; s/X/e Second(/|First.* from 2 to 3
a function is no more virtual|s/virtual double Second/double Second/|TBase::Second
an enumerator changes|s/North, East/East, North/|from value
an enumerator is added|s/North, East/&, Height/|enumerator insertion
another result|s/^double Published/float Published/|return type
a name is removed|/^double Published/d|1 Removed
a name is added|$a int Further() { return 2; }|1 Added
a variable is added|$a int Further = 2;|1 Added
ROWS
)
count=0
while IFS='|' read -r change edit told; do
    sed -e "$edit" "$work/before.cpp" >"$work/after.cpp"
    if cmp -s "$work/before.cpp" "$work/after.cpp"; then fail "$change: the edit finds nothing"; fi
    describe after
    if report=$("$tool" --compare "$work/before.abi" "$work/after.abi"); then
        fail "$change: not seen"
    fi
    grep -Eq -e "$told" <<<"$report" || fail "$change: \"$told\" isn't in the report:
$report"
    count=$((count + 1))
done <<<"$kinds"

# The names of this library are none of Vellari's, and none of Vellari's is here.
if report=$("$tool" --names "$work/before.so" 2>&1); then
    fail 'strange names and missing ones: not seen'
fi
for told in "doesn't export" 'Init_Vellari' "aren't its own" 'Published(TShape const&)'; do
    grep -Fq -e "$told" <<<"$report" || fail "\"$told\" isn't in the report of the names:
$report"
done

# What can't be read is no equality either.
echo '<abi-corpus' >"$work/broken.abi"
if "$tool" --compare "$work/before.abi" "$work/broken.abi" >/dev/null 2>&1; then
    fail 'a broken description: not seen'
fi

echo "every_kind_of_change: $count changes seen"
