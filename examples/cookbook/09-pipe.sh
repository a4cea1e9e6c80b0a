# A folder through a pipe, of any size.
. "$(dirname "$0")/common.sh"
mkdir photos
head -c 3000000 /dev/urandom >photos/one.jpg
zul identity bob.key >/dev/null
bob=$(zul identity --recipient bob.key)
mkdir restored
# [show]
tar -c photos | zul seal -r "$bob" - photos.tar.age
zul open -i bob.key photos.tar.age - | tar -x -C restored
# [end]
cmp photos/one.jpg restored/photos/one.jpg
