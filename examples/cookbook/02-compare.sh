# Whether files are still what they were.
. "$(dirname "$0")/common.sh"
mkdir photos
echo "one" >photos/one.jpg
echo "two" >photos/two.jpg
# [show]
zul hash sha256 photos/* >photos.sha256    # lines as those of sha256sum
sha256sum --check --quiet photos.sha256
# [end]
echo "changed" >photos/two.jpg
fails "FAILED" sha256sum --check --quiet photos.sha256
