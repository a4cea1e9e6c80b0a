# Whether files are still what they were.
. "$(dirname "$0")/common.sh"
mkdir photos
echo "one" >photos/one.jpg
echo "two" >photos/two.jpg
# [show]
zul hash sha256 -r photos >photos.sha256   # lines as those of sha256sum
zul hash sha256 --quiet --check photos.sha256
# [end]
sha256sum --check --quiet photos.sha256
echo "changed" >photos/two.jpg
fails "two.jpg" zul hash sha256 --check photos.sha256
