# The digest of a file.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
echo "some notes" >notes.txt
{
    # [show]
    zul hash sha256 report.txt notes.txt
    # [end]
} >digests
test "$(cat digests)" = "$(sha256sum report.txt notes.txt)"
